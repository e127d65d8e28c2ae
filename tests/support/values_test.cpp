// Colours and matrices.

#include "support/colour.h"

#include <cmath>

#include <gtest/gtest.h>

#include "support/mat3.h"

TEST(Colour, ChannelsAreRoundedAndClamped) {
  for (uint32_t v = 0; v < 255; v++)
    EXPECT_EQ(rgb_colour((v + 0.499) / 255, (v + 0.501) / 255, v / 255.0), v * 0x10101 + 0x100);
  EXPECT_EQ(rgb_colour(-1e300, 1e300, 1.0), 0x00FFFFU);
  EXPECT_EQ(rgb_colour(std::nan(""), INFINITY, -INFINITY), 0x00FF00U);
  EXPECT_EQ(colour_adjust(0x10C0BF, 0x40, 0x40, 0x40), 0x50FFFFU);
  EXPECT_EQ(colour_adjust(0x40413F, -0x40, -0x40, -0x40), 0x000100U);
  EXPECT_EQ(colour_adjust(0x102030, INT32_MAX, INT32_MIN, 0), 0xFF0030U);
}

TEST(Mat3, OperationsAgree) {
  const Mat3 a = {{{2, -3, 1}, {0.5, 7, -4}, {-6, 0.25, 3}}};
  const Mat3 b = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
  const Vec3 u = {0.3, -1.7, 2.9}, v = {1, 10, 100};
  EXPECT_EQ(length(b * v - Vec3{321, 654, 987}), 0);
  EXPECT_LT(length((a * b) * v - a * (b * v)), 1e-11);
  EXPECT_LT(length((-a - b + a * 7 / 3) * v - (a * v * (4.0 / 3) - b * v)), 1e-11);
  EXPECT_NEAR(dot(u, a * v), dot(Mat3_transpose(a) * u, v), 1e-11);
  EXPECT_LT(Mat3_max_abs(Mat3_inverse(a) * a - mat3_identity), 1e-14);
  EXPECT_EQ(Mat3_max_abs(b * -10.0), 90);
}

TEST(Mat3, RotationsAreRightHandedAndAgreeWithTheExponential) {
  const Vec3 v = {0.3, -1.7, 2.9};
  const Mat3 cross = {{{0, -v.z, v.y}, {v.z, 0, -v.x}, {-v.y, v.x, 0}}};
  EXPECT_LT(Mat3_max_abs(Mat3_exp(cross) - Mat3_rotation(v)), 1e-13);
  EXPECT_LT(Mat3_max_abs(Mat3_rotation({v.x, 0, 0}) - Mat3_rotation_x(v.x)), 1e-14);
  EXPECT_LT(Mat3_max_abs(Mat3_rotation({0, v.y, 0}) - Mat3_rotation_y(v.y)), 1e-14);
  EXPECT_LT(Mat3_max_abs(Mat3_rotation({0, 0, v.z}) - Mat3_rotation_z(v.z)), 1e-14);
  EXPECT_TRUE(Mat3_rotation({0, 0, 0}) == mat3_identity);
}
