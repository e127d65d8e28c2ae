#include "app/recovery.h"

#include <chrono>

#include "own_folder.h"
#include "scenarios.h"
#include "support/clock.h"
#include "world/session.h"
#include "world/small_world.h"

namespace {

double now;

// Two runs of the program. The node that the user is at tells one state of the session from
// another.
struct RecoveryFile : OwnFolder {
  SmallWorld world{scenario_path(20000)};
  Recovery first = {}, second = {};

  void SetUp() override {
    gfx_clock = [] { return now; };
    Recovery_start(&first, &world);
    Recovery_start(&second, &world);
  }
  void TearDown() override {
    Recovery_end(&first, true);
    Recovery_end(&second, true);
    clock_reset();
  }

  // The frames of a write that begins after so many seconds. In slow ones each reading of the clock
  // takes two seconds. Returns their number.
  int frames(Recovery *recovery, double seconds, bool slow = false) {
    now += seconds;
    if (slow) gfx_clock = [] { return now += 2.0; };
    int count = 0;
    do
      Recovery_frame(recovery, &world, false, false);
    while (recovery->file.stream != nullptr && ++count < 1000);
    gfx_clock = [] { return now; };
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
  // What the end of a process leaves.
  static void kill(Recovery *recovery) {
    file_unlock(recovery->lock);
    *recovery = {};
  }
};

TEST_F(RecoveryFile, IsWrittenWhenSomethingHasChangedAndResumedAfterAKill) {
  frames(&first, 1000);
  EXPECT_EQ(files(), "") << "nothing has changed";
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
  Recovery_frame(&second, &world, true, true);
  EXPECT_TRUE(second.changed) << "a relaxation moved nodes";
  Recovery_end(&second, true);
  EXPECT_EQ(files(), "");
}

TEST_F(RecoveryFile, EachRunHasItsOwnAndTheNewestIsResumed) {
  for (Recovery *run : {&first, &second}) {
    world.cur.node++;
    EXPECT_GT(frames(run, recovery_period, true), 1);
  }
  EXPECT_EQ(files(), "maze_save.recovery-1.dat maze_save.recovery.dat ");
  const std::string newer = second.path;
  fs::last_write_time(first.path, fs::last_write_time(newer) - std::chrono::seconds(1));
  kill(&first);
  kill(&second);
  std::ofstream("maze_save.recovery-7.dat") << "damaged";
  std::ofstream("maze_save.recovery-8.dat"); // of a run that was killed before its first write
  EXPECT_EQ(resume(), 2);
  EXPECT_EQ(files(), "maze_save.beside-1.dat maze_save.damaged-1.dat maze_save.recovery-1.dat ");
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
  EXPECT_EQ(
      testing::internal::GetCapturedStderr(),
      "vorel: the recovery file \"maze_save.recovery.dat\" could not be written (No such file "
      "or directory); quit to save the session\n");
  fs::current_path(folder);
  frames(&first, recovery_period);
  kill(&first);
  EXPECT_EQ(resume(), 1);
}

} // namespace
