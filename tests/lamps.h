#pragma once

#include <algorithm>
#include <cmath>

#include "support/vec3.h"

// The light on a surface at full precision: of the lamps that repeat through all of space, and of
// one at `user`.
inline Vec3 lamp_light(Vec3 normal, Vec3 place, Vec3 user, Vec3 user_colour) {
  constexpr Vec3 lamp[4] = {{10.4, 0.6, 3.3}, {3.4, 0.4, 1.3}, {10.4, 8.6, 3.3}, {3.4, 11.4, 1.3}};
  constexpr Vec3 colour[4] = {{2.5, 5, 4}, {5, 4, 2.5}, {2.5, 4, 4}, {5, 5, 2.5}};
  const auto fold = [](double d, double period) {
    return d - period * std::floor(d / period + 0.5);
  };
  Vec3 sum = {0, 0, 0};
  for (int n = 0; n < 4; n++) {
    const Vec3 d = lamp[n] - place;
    const Vec3 near = {fold(d.x, 20), fold(d.y, 20), fold(d.z, 10)};
    const double fade =
        (1 - near.x * near.x / 100) * (1 - near.y * near.y / 100) * (1 - near.z * near.z / 25);
    sum = sum + colour[n] * (fade * std::max(0.0, dot(normal, near) / dot(near, near)));
  }
  const Vec3 d = user - place;
  return sum + user_colour * (std::max(0.1, dot(normal, d) / length(d)) / length(d));
}
