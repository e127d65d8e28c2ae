#pragma once

#include <algorithm>
#include <cmath>

// A point or a direction in world units, passed by value; z is height.
struct Vec3 {
  double x, y, z;
};

// The same in single precision, as sent to the graphics card.
struct Vec3f {
  float x, y, z;
};

constexpr Vec3f rounded(Vec3 a) {
  return {static_cast<float>(a.x), static_cast<float>(a.y), static_cast<float>(a.z)};
}

constexpr Vec3 operator+(Vec3 a, Vec3 b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vec3 operator-(Vec3 a, Vec3 b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vec3 operator*(Vec3 a, double k) {
  return {a.x * k, a.y * k, a.z * k};
}
constexpr Vec3 operator*(double k, Vec3 a) {
  return a * k;
}
constexpr Vec3 operator/(Vec3 a, double k) {
  return {a.x / k, a.y / k, a.z / k};
}
constexpr double dot(Vec3 a, Vec3 b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
// The minimum and the maximum of each component. A NaN in b is ignored.
constexpr Vec3 min_components(Vec3 a, Vec3 b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)};
}
constexpr Vec3 max_components(Vec3 a, Vec3 b) {
  return {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)};
}
constexpr double length_squared(Vec3 a) {
  return dot(a, a);
}
constexpr Vec3 cross(Vec3 a, Vec3 b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(Vec3 a) {
  return std::sqrt(length_squared(a));
}
// a with length 1; zero if a has no length.
inline Vec3 unit(Vec3 a) {
  const double size = length(a);
  return size > 0 ? a * (1.0 / size) : Vec3{};
}
inline bool is_finite(Vec3 a) {
  return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z);
}
