#include "app/run.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "gfx/input.h"
#include "gfx/window.h"
#include "text/font.h"
#include "support/clock.h"
#include "world/move.h"

namespace {

double clock_now = 500.0;

TEST(Run, FramesMoveTheClockAndTheCameraByTheirTime) {
  const auto outside = std::filesystem::temp_directory_path();
  const auto folder = outside / ("vorel_run_test." + std::to_string(getpid())); // for its files
  std::filesystem::create_directories(folder);
  std::filesystem::current_path(folder);
  gfx_clock = [] { return clock_now; };
  ::Run run;
  ASSERT_TRUE(run_start(&run));
  EXPECT_EQ(screen_width, 4 * screen_height / 3);
  EXPECT_EQ(run.world.time, 0.0);
  EXPECT_STREQ(current_font->name, "normal");
  run.world.zoom = 40.0;
  const double start = run.world.camera.z;
  const double ideal = World_follow_point(&run.world).z + 40.0;
  clock_now += 0.05;
  EXPECT_TRUE(run_frame(&run));
  EXPECT_NEAR(run.world.time, 0.05, 1e-9);
  EXPECT_NEAR(run.world.camera.z, (start + ideal) / 2, 1e-9);
  clock_now += 0.5;
  key_state['R'] = 0x80;
  quit_requested = 1;
  EXPECT_FALSE(run_frame(&run));
  EXPECT_NEAR(run.world.time, 0.55, 1e-9);
  EXPECT_NEAR(run.relaxation.simplify_rate, 1.5, 1e-9); // by R, not E
  key_state['R'] = 0;
  run_end(&run);
  quit_requested = 0;
  EXPECT_FALSE(gfx_context_alive());
  clock_reset();
  std::filesystem::current_path(outside); // some systems keep a folder that is in use
  std::filesystem::remove_all(folder);
}

} // namespace
