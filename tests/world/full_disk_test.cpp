#include "world/session.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "scenarios.h"
#include "support/random.h"

namespace {

const std::string path = testing::TempDir() + "vorel_full_disk_test." + std::to_string(getpid());

std::string file_bytes() {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

// The disk is full after 64 KiB, as far as this process can tell.
TEST(FullDisk, FailedSaveLeavesTheOldFileAndNothingElse) {
  World small = {}, large;
  small.root = scenario_path(2);
  small.cur = {small.root, 0};
  GrowList_init(&small.roamers, sizeof(Roamer));
  ASSERT_TRUE(World_save(&small, path.c_str()));
  const std::string before_it = file_bytes();
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
  World_free(&small);
  World_free(&large);
  std::filesystem::remove(path);
}

} // namespace
