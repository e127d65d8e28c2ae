#include "support/mat3.h"

#include <random>

#include <gtest/gtest.h>

static Vec3 vector() {
  static std::mt19937 numbers(11);
  static std::uniform_real_distribution<double> number(-2.0, 2.0);
  return {number(numbers), number(numbers), number(numbers)};
}

static Mat3 matrix() {
  return Mat3_outer({1, 0, 0}, vector()) + Mat3_outer({0, 1, 0}, vector()) +
         Mat3_outer({0, 0, 1}, vector());
}

static double distance(const Mat3 &a, const Mat3 &b) {
  return Mat3_max_abs(a - b);
}

TEST(Mat3, OperationsAreSeenInWhatTheyDoToVectors) {
  const Mat3 digits = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
  EXPECT_EQ(length(digits * Vec3{1, 10, 100} - Vec3{321, 654, 987}), 0);
  EXPECT_DOUBLE_EQ(Mat3_determinant({{{0, 0, 2}, {3, 0, 0}, {0, 5, 0}}}), 30.0);
  EXPECT_FALSE(std::isfinite(Mat3_max_abs(Mat3_inverse(digits))));
  for (int i = 0; i < 9; i++) {
    Mat3 a = mat3_identity;
    a.m[i / 3][i % 3] = -10.0;
    EXPECT_TRUE(a == a && a != mat3_identity && Mat3_max_abs(a) == 10.0);
  }
  for (int i = 0; i < 200; i++) {
    const Mat3 a = matrix(), b = matrix();
    const Vec3 u = vector(), v = vector();
    const double det = Mat3_determinant(a);
    EXPECT_LT(length((a * b) * v - a * (b * v)), 1e-11);
    EXPECT_LT(length((-a - b + a * u.x) * v - (a * v * (u.x - 1.0) - b * v)), 1e-11);
    EXPECT_LT(distance(a / u.x * u.x, a), 1e-11);
    EXPECT_NEAR(dot(u, a * v), dot(Mat3_transpose(a) * u, v), 1e-11);
    EXPECT_LT(length(Mat3_outer(u, v) * (a * v) - u * dot(v, a * v)), 1e-11);
    EXPECT_NEAR(Mat3_determinant(a * b), det * Mat3_determinant(b), 1e-9);
    EXPECT_LT(distance(Mat3_inverse(a) * a * det, mat3_identity * det), 1e-11);
  }
}

TEST(Mat3, RotationsAreRightHandedAndAgreeWithTheExponential) {
  EXPECT_NEAR((Mat3_rotation_x(0.5) * Vec3{0, 1, 0}).z, std::sin(0.5), 1e-15);
  EXPECT_TRUE(Mat3_rotation({0, 0, 0}) == mat3_identity);
  for (int i = 0; i < 200; i++) {
    const Vec3 v = vector();
    EXPECT_LT(distance(Mat3_rotation({v.x, 0, 0}), Mat3_rotation_x(v.x)) +
                  distance(Mat3_rotation({0, v.y, 0}), Mat3_rotation_y(v.y)) +
                  distance(Mat3_rotation({0, 0, v.z}), Mat3_rotation_z(v.z)),
              1e-14);
    const Mat3 cross = {{{0, -v.z, v.y}, {v.z, 0, -v.x}, {-v.y, v.x, 0}}};
    EXPECT_LT(distance(Mat3_exp(cross), Mat3_rotation(v)), 1e-13);
  }
  EXPECT_GT(Mat3_exp(mat3_identity * 1e-14).m[2][2], 1.0); // a small term still counts
  for (const double entry : {1e5, -1e300, HUGE_VAL, std::nan("")})
    EXPECT_FALSE(std::isfinite(Mat3_max_abs(Mat3_exp(mat3_identity * entry))));
}
