#include "support/mat3.h"

#include <algorithm>
#include <cmath>

#include "support/trigonometry.h"

namespace {

// Signed cofactor of entry (i, j). Cyclic indices give the sign.
double cofactor(const Mat3 &a, int i, int j) {
  const int i1 = (i + 1) % 3;
  const int i2 = (i + 2) % 3;
  const int j1 = (j + 1) % 3;
  const int j2 = (j + 2) % 3;
  return a.m[i1][j1] * a.m[i2][j2] - a.m[i1][j2] * a.m[i2][j1];
}

// The matrix with entry(i, j) at (i, j).
template <typename Entry> Mat3 each_entry(Entry entry) {
  Mat3 result;
  for (int i = 0; i < 3; i++)
    for (int j = 0; j < 3; j++)
      result.m[i][j] = entry(i, j);
  return result;
}

// Entry (i, j) is a[i] * b[j].
Mat3 Mat3_outer(Vec3 a, Vec3 b) {
  return {{{a.x * b.x, a.x * b.y, a.x * b.z},
           {a.y * b.x, a.y * b.y, a.y * b.z},
           {a.z * b.x, a.z * b.y, a.z * b.z}}};
}

} // namespace

Mat3 operator*(const Mat3 &a, const Mat3 &b) {
  return each_entry([&](int i, int j) {
    return a.m[i][0] * b.m[0][j] + a.m[i][1] * b.m[1][j] + a.m[i][2] * b.m[2][j];
  });
}

Mat3 operator+(const Mat3 &a, const Mat3 &b) {
  return each_entry([&](int i, int j) { return a.m[i][j] + b.m[i][j]; });
}

Mat3 operator-(const Mat3 &a, const Mat3 &b) {
  return each_entry([&](int i, int j) { return a.m[i][j] - b.m[i][j]; });
}

Mat3 operator-(const Mat3 &a) {
  return each_entry([&](int i, int j) { return -a.m[i][j]; });
}

Mat3 operator*(const Mat3 &a, double k) {
  return each_entry([&](int i, int j) { return a.m[i][j] * k; });
}

Mat3 operator/(const Mat3 &a, double k) {
  return each_entry([&](int i, int j) { return a.m[i][j] / k; });
}

Vec3 operator*(const Mat3 &a, Vec3 v) {
  return {dot(Mat3_row(a, 0), v), dot(Mat3_row(a, 1), v), dot(Mat3_row(a, 2), v)};
}

bool operator==(const Mat3 &a, const Mat3 &b) {
  for (int i = 3; i-- > 0;)
    if (!std::equal(a.m[i], a.m[i] + 3, b.m[i])) return false;
  return true;
}

Vec3 Mat3_row(const Mat3 &a, int row) {
  return {a.m[row][0], a.m[row][1], a.m[row][2]};
}

Mat3 Mat3_transpose(const Mat3 &a) {
  return each_entry([&](int i, int j) { return a.m[j][i]; });
}

double Mat3_determinant(const Mat3 &a) {
  return a.m[0][0] * cofactor(a, 0, 0) + a.m[0][1] * cofactor(a, 0, 1) +
         a.m[0][2] * cofactor(a, 0, 2);
}

Mat3 Mat3_inverse(const Mat3 &a) {
  const double determinant = Mat3_determinant(a);
  return each_entry([&](int i, int j) { return cofactor(a, j, i) / determinant; });
}

Mat3 Mat3_rotation_x(double angle) {
  const double c = portable_cos(angle);
  const double s = portable_sin(angle);
  return {{{1, 0, 0}, {0, c, -s}, {0, s, c}}};
}

Mat3 Mat3_rotation_y(double angle) {
  const double c = portable_cos(angle);
  const double s = portable_sin(angle);
  return {{{c, 0, s}, {0, 1, 0}, {-s, 0, c}}};
}

Mat3 Mat3_rotation_z(double angle) {
  const double c = portable_cos(angle);
  const double s = portable_sin(angle);
  return {{{c, -s, 0}, {s, c, 0}, {0, 0, 1}}};
}

Mat3 Mat3_rotation(Vec3 v) {
  const double angle = length(v);
  if (angle == 0.0) return mat3_identity;
  const Vec3 axis = {v.x / angle, v.y / angle, v.z / angle};
  const Mat3 cross = {{{0, -axis.z, axis.y}, {axis.z, 0, -axis.x}, {-axis.y, axis.x, 0}}};
  const double c = portable_cos(angle);
  return mat3_identity * c + cross * portable_sin(angle) + Mat3_outer(axis, axis) * (1.0 - c);
}

double Mat3_max_abs(const Mat3 &a) {
  double largest = 0.0;
  for (int i = 3; i-- > 0;)
    for (int j = 3; j-- > 0;) {
      const double size = std::fabs(a.m[i][j]);
      if (size > largest || std::isnan(size)) largest = size;
    }
  return largest;
}

Mat3 Mat3_exp(const Mat3 &a) {
  Mat3 sum = mat3_identity;
  Mat3 term = a;
  // The terms may never get small once the sum has overflowed.
  for (int k = 2; !(Mat3_max_abs(term) <= 1e-15) && std::isfinite(Mat3_max_abs(sum)); k++) {
    sum = sum + term;
    term = term * a / k;
  }
  return sum;
}
