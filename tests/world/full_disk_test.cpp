#include "world/session.h"

#include <cerrno>

#include <sys/resource.h>

#include "scenarios.h"
#include "support/random.h"
#include "world/session_file.h"
#include "world/small_world.h"

namespace {

// The disk is full after 64 KiB, as far as this process can tell.
TEST_F(SessionFile, FailedSaveLeavesTheOldFileAndNothingElse) {
  const SmallWorld small(scenario_path(2));
  ASSERT_TRUE(World_save(&small, path.c_str()));
  const Bytes before_it = file_bytes();
  World large;
  rand_seed(1);
  World_new(&large, 2);
  rlimit before;
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit = {65536, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  errno = 0;
  const bool saved = World_save(&large, path.c_str());
  const int cause = errno;
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_TRUE(!saved && cause == EFBIG);
  EXPECT_EQ(file_bytes(), before_it);
  EXPECT_FALSE(std::filesystem::exists(path + ".new-1"));
  EXPECT_TRUE(World_save(&large, path.c_str()));
  EXPECT_FALSE(World_save(&large, "/nonexistent/maze_save.dat"));
  World_free(&large);
}

} // namespace
