#include "app/recovery.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <unistd.h>

#include "scenarios.h"
#include "support/clock.h"
#include "world/session.h"
#include "world/small_world.h"

namespace {

namespace fs = std::filesystem;

double now;

// Two runs of the program in a folder of their own. Loading a session has the user on node 0.
struct RecoveryFile : testing::Test {
  const fs::path outside = fs::current_path();
  const fs::path folder =
      fs::temp_directory_path() / ("vorel_recovery." + std::to_string(getpid()));
  SmallWorld world{scenario_path(20000)};
  Recovery first = {}, second = {};

  void SetUp() override {
    fs::create_directory(folder);
    fs::current_path(folder);
    gfx_clock = [] { return now; };
    Recovery_start(&first, &world);
    Recovery_start(&second, &world);
  }
  void TearDown() override {
    Recovery_end(&first, true);
    Recovery_end(&second, true);
    clock_reset();
    fs::current_path(outside);
    fs::remove_all(folder);
  }

  // As many as a write takes. With `slow` ones each reading of the clock takes two seconds.
  void frames(Recovery *recovery, double seconds, bool slow = false) {
    now += seconds;
    if (slow) gfx_clock = [] { return now += 2.0; };
    int32_t count = 0;
    do
      Recovery_frame(recovery, &world, false, false);
    while (recovery->file.stream != nullptr && ++count < 1000);
    gfx_clock = [] { return now; };
  }
  // The node of the session that the next start resumes; -1 if there is none.
  int32_t resume() {
    World resumed;
    if (!Recovery_resume(&second, &resumed, file_identity("maze_save.dat"))) return -1;
    const int32_t node = resumed.cur.node;
    World_free(&resumed);
    return node;
  }
  // Ends a run as a kill does.
  static void kill(Recovery *recovery) {
    file_unlock(recovery->lock);
    *recovery = {};
  }
};

TEST_F(RecoveryFile, IsWrittenWhenSomethingHasChangedAndResumedAfterAKill) {
  frames(&first, 1000);
  EXPECT_TRUE(fs::is_empty(folder));
  world.cur.node = 1;
  frames(&first, 0); // due for a long time
  world.cur.node = 2;
  frames(&first, recovery_period - 1);
  EXPECT_EQ(resume(), -1) << "the run goes on";
  kill(&first);
  EXPECT_EQ(resume(), 1);
  world.zoom = 30.0;
  Recovery_frame(&second, &world, false, true); // at once, since the window is hidden
  EXPECT_FALSE(second.changed);
  Recovery_end(&second, true);
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(RecoveryFile, EachRunHasItsOwnAndTheNewestIsResumed) {
  for (Recovery *run : {&first, &second}) {
    world.cur.node++;
    frames(run, recovery_period, true);
  }
  const std::string older = first.path, newer = second.path;
  ASSERT_NE(older, newer);
  kill(&first);
  kill(&second);
  fs::last_write_time(older, fs::last_write_time(newer) - std::chrono::seconds(1));
  std::ofstream("maze_save.recovery-7.dat") << "damaged";
  EXPECT_EQ(resume(), 2);
  EXPECT_TRUE(fs::exists("maze_save.beside-1.dat") && fs::exists("maze_save.damaged-1.dat"));
  Recovery_end(&second, false);
  World_save(&world, "maze_save.dat");
  fs::last_write_time(second.path, fs::last_write_time("maze_save.dat") - std::chrono::seconds(1));
  EXPECT_EQ(resume(), -1) << "older than the session";
}

TEST_F(RecoveryFile, AFailureIsReportedOnceAndTriedAgain) {
  const fs::path gone = folder / "gone";
  fs::create_directory(gone);
  fs::current_path(gone);
  std::error_code error;
  if (!fs::remove(gone, error)) GTEST_SKIP() << "this system keeps a folder that is in use";
  testing::internal::CaptureStderr();
  world.cur.node = 1;
  frames(&first, recovery_period);
  frames(&first, recovery_period);
  const std::string words = testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(words.begin(), words.end(), '\n'), 1) << words;
  fs::current_path(folder);
  frames(&first, recovery_period);
  kill(&first);
  EXPECT_EQ(resume(), 1);
}

} // namespace
