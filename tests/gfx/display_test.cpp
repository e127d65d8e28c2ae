#include "gfx/display.h"

#include <cstdint>
#include <random>
#include <utility>

#include <gtest/gtest.h>

namespace {

const PlatformMetrics metrics = {1920, 1080, {-1280, -900, 1920, 1300}, 8, 10, 23};

// The primary monitor, one to the left and lower, one above.
TEST(Display, EveryRequestHasItsArea) {
  GrowList monitors;
  GrowList_init(&monitors, sizeof(MonitorRect));
  for (MonitorRect monitor : {MonitorRect{0, 0, 1920, 1080}, MonitorRect{-1280, 276, 0, 1300},
                              MonitorRect{100, -900, 1700, 0}})
    GrowList_append(&monitors, &monitor);
  auto expect_area = [&](int32_t width_request, int32_t height_request, MonitorRect want) {
    MonitorRect area = display_area(width_request, height_request, metrics, monitors);
    EXPECT_TRUE(area.left == want.left && area.top == want.top && area.right == want.right &&
                area.bottom == want.bottom)
        << width_request << ", " << height_request;
  };
  for (int32_t number : {0, 1, 4, 9, -1, INT32_MIN})
    expect_area(0, number, {0, 0, 1920, 1080});
  expect_area(0, 2, {-1280, 276, 0, 1300});
  expect_area(0, 3, {100, -900, 1700, 0});
  for (int32_t all : {0, -1, INT32_MIN})
    expect_area(-1, all, metrics.virtual_desktop);
  expect_area(-1, 1, {0, 0, 1920, 1080});
  expect_area(-1, 5, {0, -900, 1920, 1080});
  expect_area(-1, 2 | 4 | 8, {-1280, -900, 1700, 1300}); // the fourth is not there
  expect_area(-1, 1 << 30, {999999999, 999999999, -999999999, -999999999});
  expect_area(800, 600, {0, 0, 800, 600});
  GrowList_clear(&monitors);
  expect_area(0, 1, {0, 0, 1920, 1080});
  GrowList_free(&monitors);
}

TEST(Display, OnlyAFramedWindowOfNoSizeOfItsOwnShrinks) {
  auto size = [](MonitorRect area, int32_t width_request, bool framed) {
    ClientSize got = display_client_size(area, width_request, framed);
    return std::pair(got.width, got.height);
  };
  EXPECT_EQ(size({5, -900, 5, -131}, 0, true), std::pair(614, 461)); // 461.4, then 614.67
  EXPECT_EQ(size({0, 0, 1920, 1080}, 0, false), std::pair(1920, 1080));
  EXPECT_EQ(size({-1280, -900, 1920, 1300}, -1, true), std::pair(3200, 2200));
  EXPECT_EQ(size({0, 0, 800, 600}, 800, true), std::pair(800, 600));
}

// However the cursor stands, a framed window is on the desktop, centred where it can be.
TEST(Display, FramedWindowStaysOnTheDesktop) {
  std::mt19937 random(7);
  auto pick = [&random](int32_t low, int32_t high) {
    return std::uniform_int_distribution<int32_t>(low, high)(random);
  };
  const MonitorRect &desktop = metrics.virtual_desktop;
  for (int round = 0; round < 2000; round++) {
    ClientSize size = {pick(1, 4000), pick(1, 3000)};
    PlatformPoint cursor = {pick(-1280, 1919), pick(-900, 1299)};
    MonitorRect outer = display_framed_outer(size, metrics, cursor);
    ASSERT_EQ(outer.right - outer.left, size.width + 16);
    ASSERT_EQ(outer.bottom - outer.top, size.height + 23 + 20);
    ASSERT_TRUE(outer.left >= desktop.left && outer.top >= desktop.top);
    ASSERT_TRUE(outer.right <= desktop.right || outer.left == desktop.left);
    bool free_x = outer.left > desktop.left && outer.right < desktop.right;
    bool free_y = outer.top > desktop.top && outer.bottom < desktop.bottom;
    ASSERT_TRUE(!free_x || outer.left == cursor.x - (size.width + 16) / 2);
    ASSERT_TRUE(!free_y || outer.top == cursor.y - (size.height + 43) / 2);
  }
}

TEST(Display, ModeChangesForAPlainFullscreenSizeOnly) {
  EXPECT_TRUE(display_changes_mode(800, false, 0, 0));
  EXPECT_FALSE(display_changes_mode(800, true, 0, 0) || display_changes_mode(800, false, 1, 0) ||
               display_changes_mode(800, false, 0, -1) || display_changes_mode(-1, false, 0, 0));
}

} // namespace
