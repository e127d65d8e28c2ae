#include "gfx/window.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "gfx/error_box.h"
#include "gfx/fake_platform.h"
#include "gfx/input.h"
#include "gfx/projection.h"
#include "support/report.h"

namespace {

class Window : public testing::Test {
protected:
  void SetUp() override {
    fake_start();
    fake.monitors = {{0, 0, 1920, 1080}, {1920, 0, 2920, 500}};
    fake.metrics.virtual_desktop = {0, 0, 2920, 1080};
  }
};

TEST_F(Window, FramedWindowIsPlannedFromTheMonitors) {
  windowed = 1;
  fake.cursor = {2900, 540};
  fullscreen_offset_x = 77; // ignored with a frame
  ASSERT_EQ(gfx_open(0, 2, "a title"), 1);
  EXPECT_TRUE(screen_width == 400 && screen_height == 300);
  EXPECT_TRUE(fake.request.outer.left == 2520 && fake.request.outer.top == 390);
  EXPECT_TRUE(fake.request.framed && fake.cursor_hidden == 0);
  EXPECT_STREQ(fake.request.title, "a title");
  gfx_resize(0, 0); // minimised
  EXPECT_TRUE(screen_width == 0 && screen_height == 1);
}

TEST_F(Window, FullscreenCoversTheAreaAndHidesTheCursor) {
  fullscreen_offset_y = -5;
  key_state['A'] = key_state_prev['A'] = key_state[383] = 0x80;
  ASSERT_EQ(gfx_open(-1, 3, "t"), 1);
  EXPECT_TRUE(screen_width == 2920 && fake.request.client_height == 1080);
  EXPECT_TRUE(fake.request.outer.top == -5 && fake.request.outer.bottom == 1075);
  EXPECT_EQ(fake.cursor_hidden, 1);
  EXPECT_EQ(key_state['A'] | key_state_prev['A'] | key_state[383], 0);
  fullscreen_offset_x = INT32_MAX; // with an area of no known monitor: must not trap
  EXPECT_EQ(gfx_open(-1, 4, "t"), 1);
}

TEST_F(Window, EmptyResolutionOpensNothing) {
  EXPECT_EQ(gfx_open(800, 0, "t"), 0);
  EXPECT_TRUE(fake.opened == 0 && !gfx_context_alive());
}

TEST_F(Window, CloseMayComeTwiceAndAResizeAfterIt) {
  ASSERT_EQ(gfx_open(640, 480, "t"), 1);
  EXPECT_TRUE(gfx_context_alive());
  gfx_close_requested();
  gfx_close_requested();
  gfx_resize(300, 200);
  EXPECT_TRUE(!gfx_context_alive() && gfx_pump() == 1 && screen_width == 300);
}

// Every way of failing: one sentence on the standard error, then the fatal report, status 1.
TEST_F(Window, FailureTellsTheUserThenEndsTheProgram) {
  struct Case {
    bool has_display;
    PlatformOpen result;
    const char *lack, *words;
  };
  const Case cases[] = {
      {false, PlatformOpen::ok, "no display", "Window Creation Error."},
      {true, PlatformOpen::no_class, "window system", "Failed To Register The Window Class."},
      {true, PlatformOpen::no_window, "no window", "Window Creation Error."},
      {true, PlatformOpen::no_pixel_format, "24 bits", "Can't Find A Suitable PixelFormat."},
      {true, PlatformOpen::bad_pixel_format, "refused", "Can't Set The PixelFormat."},
      {true, PlatformOpen::no_context, "OpenGL", "Can't Create A GL Rendering Context."},
      {true, PlatformOpen::no_current, "OpenGL", "Can't activate GLRC."},
  };
  for (const Case &c : cases) {
    auto open = [&c] {
      std::fflush(stdout);
      dup2(STDERR_FILENO, STDOUT_FILENO);
      report_sleep = [](int32_t milliseconds) { std::printf("waited %d\n", milliseconds); };
      fake.has_display = c.has_display;
      fake.open_result = c.result;
      gfx_open(640, 480, "t");
    };
    std::string pattern = std::string("^vorel: .*") + c.lack + ".*\\(the fake said so\\): .*\\.\n" +
                          "\n\\[FATAL ERROR\\] " + c.words + "\nwaited 2500\n$";
    EXPECT_EXIT(open(), testing::ExitedWithCode(1), testing::ContainsRegex(pattern)) << c.words;
  }
}

TEST_F(Window, ErrorBoxIsLoggedAndShown) {
  std::remove("graphics_error.log");
  gfx_warning_box("first");
  EXPECT_EQ(fake.box, "Errr|first");
  EXPECT_EXIT(gfx_fatal_box("then"), testing::ExitedWithCode(1), "");
  std::FILE *log = std::fopen("graphics_error.log", "r");
  ASSERT_NE(log, nullptr);
  char words[2][8];
  int read = std::fscanf(log, "%*4d-%*3[A-Za-z]-%*2d %*2d:%*2d:%*2d %7s\n", words[0]) +
             std::fscanf(log, "%*4d-%*3[A-Za-z]-%*2d %*2d:%*2d:%*2d %7s\n", words[1]);
  EXPECT_TRUE(read == 2 && std::string("first") == words[0] && std::string("then") == words[1]);
  EXPECT_EQ(std::fgetc(log), EOF);
  std::fclose(log);
  std::remove("graphics_error.log");
}

// Where the frame's edges are seen, at a distance of 1; finite also for no frame at all.
TEST(Projection, Central43RegionSpans90Degrees) {
  const double cases[][4] = {{640, 480, 1, 0.75},
                             {1920, 1080, 4.0 / 3, 0.75},
                             {600, 600, 1, 1},
                             {300, 1200, 1, 4},
                             {0, 0, 1, 1}};
  for (const auto &[width, height, half_width, half_height] : cases) {
    float matrix[16];
    projection_perspective(static_cast<int>(width), static_cast<int>(height), matrix);
    EXPECT_NEAR(1 / matrix[0], half_width, 1e-6) << width << "x" << height;
    EXPECT_NEAR(1 / matrix[5], half_height, 1e-6) << width << "x" << height;
  }
}

// The planes follow from the elements: near = e14 / (e10 - 1), far = e14 / (e10 + 1).
TEST(Projection, SlabsMeetAndKeepAllElse) {
  auto expect_planes = [](const float *m, double near, double far) {
    EXPECT_NEAR(m[14] / (m[10] - 1), near, 1e-5 * near);
    EXPECT_NEAR(m[14] / (m[10] + 1), far, 3e-3 * far);
  };
  float matrix[16];
  float shifted[16];
  projection_perspective(1600, 900, matrix);
  expect_planes(matrix, 0.1, 1000);
  matrix[8] = 0.25F; // an eye's shift
  std::copy(matrix, matrix + 16, shifted);
  projection_far_slab(shifted);
  expect_planes(shifted, 1000, 1.0015e7);
  EXPECT_EQ(std::bit_cast<uint32_t>(shifted[10]), 0xBF80068BU);
  EXPECT_EQ(std::bit_cast<uint32_t>(shifted[14]), 0xC4FA0664U);
  projection_near_slab(shifted);
  expect_planes(shifted, 0.1, 1001.5);
  EXPECT_EQ(std::bit_cast<uint32_t>(shifted[10]), 0xBF80068BU);
  EXPECT_EQ(std::bit_cast<uint32_t>(shifted[14]), 0xBE4CD209U);
  shifted[10] = matrix[10];
  shifted[14] = matrix[14];
  EXPECT_TRUE(std::equal(matrix, matrix + 16, shifted));
}

} // namespace
