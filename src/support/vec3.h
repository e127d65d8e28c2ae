#pragma once

#include <cmath>

// A point or a direction in world units, passed by value; z is height.
struct Vec3 {
  double x, y, z;
};

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
constexpr double dot(Vec3 a, Vec3 b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr double length_squared(Vec3 a) {
  return dot(a, a);
}
inline double length(Vec3 a) {
  return std::sqrt(length_squared(a));
}
inline bool is_finite(Vec3 a) {
  return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z);
}
