#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "support/vec3.h"

// An axis-aligned box in world units. Empty if low is above high.
struct Box {
  Vec3 low, high;
};

constexpr double box_limit = std::numeric_limits<double>::infinity();
constexpr Box box_empty = {{box_limit, box_limit, box_limit}, {-box_limit, -box_limit, -box_limit}};

// Grows the box to contain a point, or all of space if the point isn't finite.
inline void box_add(Box *box, Vec3 point) {
  if (!is_finite(point)) {
    *box = {box_empty.high, box_empty.low};
    return;
  }
  box->low = min_components(box->low, point);
  box->high = max_components(box->high, point);
}

// Grows the box to contain a ball and the square around it, in any orientation.
inline void box_add_ball(Box *box, Vec3 centre, double radius) {
  const double reach = std::numbers::sqrt3 * radius; // to a corner of the ball's cube
  box_add(box, centre - Vec3{reach, reach, reach});
  box_add(box, centre + Vec3{reach, reach, reach});
}

// Moves the sides of a box outwards.
inline void box_widen(Box *box, Vec3 by) {
  box->low = box->low - by;
  box->high = box->high + by;
}

// Grows the box to contain another.
inline void box_unite(Box *box, const Box &other) {
  box->low = min_components(box->low, other.low);
  box->high = max_components(box->high, other.high);
}

// The largest distance from a point to anything in the box.
inline double box_max_distance(const Box &box, Vec3 from) {
  return length({std::max(std::abs(box.low.x - from.x), std::abs(box.high.x - from.x)),
                 std::max(std::abs(box.low.y - from.y), std::abs(box.high.y - from.y)),
                 std::max(std::abs(box.low.z - from.z), std::abs(box.high.z - from.z))});
}
