#pragma once

#include "support/vec3.h"

// A 3 x 3 matrix, m[row][column].
struct Mat3 {
  double m[3][3];
};

constexpr Mat3 mat3_identity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

Mat3 operator*(const Mat3 &a, const Mat3 &b);
Mat3 operator+(const Mat3 &a, const Mat3 &b);
Mat3 operator-(const Mat3 &a, const Mat3 &b);
Mat3 operator-(const Mat3 &a);
Mat3 operator*(const Mat3 &a, double k);
Mat3 operator/(const Mat3 &a, double k);
Vec3 operator*(const Mat3 &a, Vec3 v);
bool operator==(const Mat3 &a, const Mat3 &b); // all nine entries

Vec3 Mat3_row(const Mat3 &a, int row);
Mat3 Mat3_transpose(const Mat3 &a);
double Mat3_determinant(const Mat3 &a);

// By cofactors. A determinant of 0 gives entries that are not finite.
Mat3 Mat3_inverse(const Mat3 &a);

// Right-handed rotations by an angle in radians.
Mat3 Mat3_rotation_x(double angle);
Mat3 Mat3_rotation_y(double angle);
Mat3 Mat3_rotation_z(double angle);

// Rotation about the direction of `v` by its length in radians (Rodrigues' formula); the identity
// for a zero vector.
Mat3 Mat3_rotation(Vec3 v);

// The largest absolute entry; NaN if any entry is NaN.
double Mat3_max_abs(const Mat3 &a);

// Matrix exponential: the Taylor series up to the first term whose entries are all at most 1e-15 in
// absolute value. The result is not finite if the sum overflows or an entry is NaN.
Mat3 Mat3_exp(const Mat3 &a);
