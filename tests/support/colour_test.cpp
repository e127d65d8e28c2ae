#include "support/colour.h"

#include <cmath>

#include <gtest/gtest.h>

TEST(Colour, ChannelsAreRoundedAndClamped) {
  for (uint32_t v = 0; v < 255; v++)
    EXPECT_EQ(rgb_colour((v + 0.499) / 255, (v + 0.501) / 255, v / 255.0), v * 0x10101 + 0x100);
  EXPECT_EQ(rgb_colour(-1e300, 1e300, 1.0), 0x00FFFFU);
  EXPECT_EQ(rgb_colour(std::nan(""), INFINITY, -INFINITY), 0x00FF00U);
  EXPECT_EQ(colour_adjust(0x10C0BF, 0x40, 0x40, 0x40), 0x50FFFFU);
  EXPECT_EQ(colour_adjust(0x40413F, -0x40, -0x40, -0x40), 0x000100U);
  EXPECT_EQ(colour_adjust(0x102030, INT32_MAX, INT32_MIN, 0), 0xFF0030U);
}
