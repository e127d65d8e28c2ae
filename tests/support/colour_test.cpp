#include "support/colour.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

TEST(Colour, ChannelsRoundToTheNearestStepAndClamp) {
  for (uint32_t v = 0; v < 255; v++) {
    const double below = (v + 0.499) / 255.0;
    const double above = (v + 0.501) / 255.0;
    EXPECT_EQ(rgb_colour(below, above, v / 255.0), v << 16 | (v + 1) << 8 | v);
  }
  EXPECT_EQ(rgb_colour(-1e300, 1e300, 1.0), 0x00FFFFU);
  EXPECT_EQ(rgb_colour(std::nan(""), INFINITY, -INFINITY), 0x00FF00U);
}

TEST(Colour, AdjustKeepsEachChannelToItself) {
  EXPECT_EQ(colour_adjust(0x10C0BF, 0x40, 0x40, 0x40), 0x50FFFFU);
  EXPECT_EQ(colour_adjust(0x40413F, -0x40, -0x40, -0x40), 0x000100U);
  EXPECT_EQ(colour_adjust(0x102030, 1, -2, 3), 0x111E33U);
  EXPECT_EQ(colour_adjust(0x102030, INT32_MAX, INT32_MIN, 0), 0xFF0030U);
}

} // namespace
