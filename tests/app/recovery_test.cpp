#include "app/recovery.h"

#include <chrono>

#include "own_folder.h"
#include "scenarios.h"
#include "support/clock.h"
#include "world/small_world.h"

namespace {

double now;

// Two runs of the program. The user's node tells the states of the session apart.
struct RecoveryFile : OwnFolder {
  SmallWorld world{scenario_path(20000)};
  Recovery first = {}, second = {};

  void SetUp() override {
    gfx_clock = [] { return now; };
    Recovery_start(&first, &world);
    Recovery_start(&second, &world);
  }
  void TearDown() override {
    Recovery_end(&first, true); // some systems can't remove a locked file
    Recovery_end(&second, true);
    clock_set_source(clock_steady);
  }

  // Frames until the end of a write that starts after so many seconds.
  int frames(Recovery *recovery, double seconds) {
    now += seconds;
    int count = 0;
    do
      Recovery_frame(recovery, &world, false, false);
    while (recovery->file.stream != nullptr && ++count < 1000);
    return count;
  }
  // The node of the session that the next start resumes; -1 if there is none.
  int32_t resume() {
    World resumed;
    if (!Recovery_resume(&second, &resumed, file_identity("maze_save.dat"))) return -1;
    const int32_t node = resumed.cur.node;
    World_free(&resumed);
    return node;
  }
  // Ends the run like a killed process.
  static void kill(Recovery *recovery) {
    file_unlock(recovery->lock);
    *recovery = {};
  }
};

TEST_F(RecoveryFile, IsWrittenWhenSomethingHasChangedAndResumedAfterAKill) {
  frames(&first, 1000);
  EXPECT_EQ(files(), "") << "nothing has changed";
  world.cur.node = 1;
  frames(&first, 0);       // overdue
  std::error_code ignored; // some systems keep a locked file
  fs::remove("maze_save.recovery.dat", ignored);
  world.zoom = 25.0;
  frames(&first, recovery_period);
  world.cur.node = 2;
  frames(&first, recovery_period - 1);
  testing::internal::CaptureStderr();
  EXPECT_EQ(resume(), -1) << "the run goes on";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  kill(&first);
  EXPECT_EQ(resume(), 1);
  world.zoom = 30.0;
  Recovery_frame(&second, &world, false, true); // at once
  EXPECT_FALSE(second.changed);
  Recovery_frame(&second, &world, true, true);
  EXPECT_TRUE(second.changed) << "a relaxation moved nodes";
  Recovery_end(&second, true);
  EXPECT_EQ(files(), "");
}

TEST_F(RecoveryFile, EachRunHasItsOwnAndTheNewestIsResumed) {
  gfx_clock = [] { return now += 2.0; }; // slow frames
  for (Recovery *run : {&first, &second}) {
    world.cur.node++;
    EXPECT_GT(frames(run, recovery_period), 1);
  }
  kill(&first);
  kill(&second);
  fs::last_write_time("maze_save.recovery.dat",
                      fs::last_write_time("maze_save.recovery-1.dat") - std::chrono::seconds(1));
  write("maze_save.recovery-7.dat", "damaged");
  write("maze_save.recovery-8.dat", ""); // of a run that was killed before its first write
  EXPECT_EQ(resume(), 2);
  EXPECT_EQ(files(), "maze_save.beside-1.dat maze_save.damaged-1.dat maze_save.recovery-1.dat ");
  Recovery_frame(&second, &world, true, false);
  now += recovery_period;
  Recovery_frame(&second, &world, true, false);
  EXPECT_NE(files().find(".new-1"), std::string::npos) << "a write has begun";
  Recovery_end(&second, false);
  EXPECT_EQ(files().find(".new-1"), std::string::npos);
  write("maze_save.dat", "x");
  fs::last_write_time("maze_save.dat", fs::file_time_type::clock::now() + std::chrono::hours(1));
  EXPECT_EQ(resume(), -1);
}

} // namespace
