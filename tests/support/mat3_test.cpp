#include "support/mat3.h"

#include <gtest/gtest.h>

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
