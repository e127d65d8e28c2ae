#include "gfx/window.h"

#include <bit>
#include <cstdio>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "gfx/error_box.h"
#include "gfx/fake_platform.h"
#include "gfx/projection.h"
#include "support/report.h"

namespace {

// The primary monitor, one to the left and lower, one above; a window on each area asked for.
TEST(Window, EveryRequestHasItsArea) {
  const struct {
    int32_t width, height;
    MonitorRect want;
  } cases[] = {{0, 0, {0, 0, 1920, 1080}},
               {0, 2, {-1280, 276, 0, 1300}},
               {0, 4, {0, 0, 1920, 1080}},
               {-1, INT32_MIN, {-1280, -900, 1920, 1300}},
               {-1, 5, {0, -900, 1920, 1080}},
               {-1, 2 | 4 | 8, {-1280, -900, 1700, 1300}}, // the fourth is not there
               {800, 600, {0, 0, 800, 600}}};
  for (const auto &c : cases) {
    fake_start();
    fake.monitors = {{0, 0, 1920, 1080}, {-1280, 276, 0, 1300}, {100, -900, 1700, 0}};
    fake.metrics.virtual_desktop = {-1280, -900, 1920, 1300};
    fullscreen_offset_y = -5;
    gfx_open(c.width, c.height, "t");
    const MonitorRect &outer = fake.request.outer;
    EXPECT_TRUE(outer.left == c.want.left && outer.top == c.want.top - 5 &&
                outer.right == c.want.right && outer.bottom == c.want.bottom - 5)
        << c.width << ", " << c.height;
    EXPECT_EQ(fake.cursor_hidden, 1);
  }
  fake_start();
  fullscreen_offset_x = INT32_MAX; // must not trap
  const int32_t empty[][2] = {{-1, 1 << 30}, {800, 0}, {-5, 600}, {800, -5}};
  for (const auto &[width, height] : empty)
    EXPECT_TRUE(gfx_open(width, height, "t") == 0 && fake.request.title == nullptr) << width;
}

// Centred on the cursor, but on the desktop; one that is too large starts at its corner.
TEST(Window, FramedWindowStaysOnTheDesktop) {
  const struct {
    int32_t height; // of the primary screen
    PlatformPoint cursor, corner;
  } cases[] = {{1083, {1, 1}, {-439, -345}},
               {1083, {-1280, -900}, {-1280, -900}},
               {1083, {1919, 1299}, {1039, 608}},
               {4000, {300, 300}, {-1280, -900}}};
  for (const auto &c : cases) {
    fake_start();
    windowed = 1;
    fake.metrics = {1920, c.height, {-1280, -900, 1920, 1300}, 8, 10, 23};
    fake.cursor = c.cursor;
    ASSERT_EQ(gfx_open(0, 0, "t"), 1);
    const MonitorRect &outer = fake.request.outer;
    EXPECT_EQ(screen_height, c.height * 6 / 10);
    EXPECT_EQ(screen_width, screen_height * 4 / 3);
    EXPECT_TRUE(outer.left == c.corner.x && outer.top == c.corner.y &&
                outer.right - outer.left == screen_width + 16 &&
                outer.bottom - outer.top == screen_height + 43)
        << outer.left << ", " << outer.top;
  }
  ASSERT_EQ(gfx_open(800, 600, "t"), 1);
  EXPECT_TRUE(screen_width == 800 && fake.request.framed && fake.cursor_hidden == 0);
}

// Where the frame's edges are seen, at a distance of 1; finite also for no frame at all.
TEST(Projection, Central43RegionSpans90Degrees) {
  const double cases[][4] = {{1920, 1080, 4.0 / 3, 0.75}, {300, 1200, 1, 4}, {0, 0, 1, 1}};
  for (const auto &[width, height, half_width, half_height] : cases) {
    float matrix[16];
    projection_perspective(static_cast<int>(width), static_cast<int>(height), matrix);
    EXPECT_NEAR(1 / matrix[0], half_width, 1e-6) << width << "x" << height;
    EXPECT_NEAR(1 / matrix[5], half_height, 1e-6) << width << "x" << height;
  }
}

// Elements 10 and 14 of the whole depth and of its two slabs, which overlap a little.
TEST(Projection, SlabsMeet) {
  float matrix[16];
  const auto expect_bits = [&matrix](uint32_t m10, uint32_t m14) {
    EXPECT_EQ(std::bit_cast<uint32_t>(matrix[10]), m10);
    EXPECT_EQ(std::bit_cast<uint32_t>(matrix[14]), m14);
  };
  projection_perspective(1600, 900, matrix);
  expect_bits(0xBF80068D, 0xBE4CD20B);
  projection_far_slab(matrix);
  expect_bits(0xBF80068B, 0xC4FA0664);
  projection_near_slab(matrix);
  expect_bits(0xBF80068B, 0xBE4CD209);
}

TEST(Window, FailureTellsTheUserThenEndsTheProgram) {
  const struct {
    bool has_display;
    PlatformOpen result;
    const char *lack, *words;
    int32_t width = 640;
  } cases[] = {
      {false, PlatformOpen::ok, "no display", "Window Creation Error."},
      {true, PlatformOpen::no_class, "window system", "Failed To Register The Window Class."},
      {true, PlatformOpen::no_window, "no window", "Window Creation Error."},
      {true, PlatformOpen::no_window, "99999 by 480 pixels", "Window Creation Error.", 99999},
      {true, PlatformOpen::no_pixel_format, "24 bits", "Can't Find A Suitable PixelFormat."},
      {true, PlatformOpen::bad_pixel_format, "refused", "Can't Set The PixelFormat."},
      {true, PlatformOpen::no_context, "OpenGL", "Can't Create A GL Rendering Context."},
      {true, PlatformOpen::no_current, "OpenGL", "Can't activate GLRC."},
  };
  for (const auto &c : cases) {
    auto open = [&c] {
      fake_start();
      std::fflush(stdout);
      dup2(STDERR_FILENO, STDOUT_FILENO);
      report_sleep = [](int32_t milliseconds) {
        std::fprintf(stderr, "waited %d\n", milliseconds);
      };
      fake.has_display = c.has_display;
      fake.open_result = c.result;
      gfx_open(c.width, 480, "t");
    };
    std::string pattern = std::string("^vorel: .*") + c.lack + ".*\\(the fake said so\\): .*\\.\n" +
                          "\n\\[FATAL ERROR\\] " + c.words + "\nwaited 2500\n$";
    EXPECT_EXIT(open(), testing::ExitedWithCode(1), pattern) << c.words;
  }
}

TEST(Window, ErrorBoxIsLoggedAndShown) {
  std::remove("graphics_error.log");
  gfx_warning_box("first");
  EXPECT_EQ(fake.box, "Errr|first");
  EXPECT_EXIT(gfx_fatal_box("then"), testing::ExitedWithCode(1), "");
  std::string log;
  std::getline(std::ifstream("graphics_error.log"), log, '\0');
  EXPECT_EQ(log, "2018-Jan-31 23:59:59 first\n2018-Jan-31 23:59:59 then\n");
  std::remove("graphics_error.log");
}

} // namespace
