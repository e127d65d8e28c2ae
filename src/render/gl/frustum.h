#pragma once

#include <cstdint>
#include <limits>
#include <numbers>

#include "support/vec3.h"

// Axis-aligned boxes and the view frustum that culls them. All tests are conservative: a box is
// culled only if nothing in it can touch a pixel.

// In world units. Empty, and always culled, if low is above high.
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
double box_max_distance(const Box &box, Vec3 from);

constexpr int32_t frustum_side_planes = 4; // left, right, bottom and top come first
constexpr int32_t frustum_planes = 6;      // with the near and the far plane

// A point is outside a plane if plane . (x, y, z, 1) is below -(rounding_slack . (|x|, |y|, |z|,
// 1)).
struct Frustum {
  double plane[frustum_planes][4];
  double rounding_slack[frustum_planes][4];
  double normal_length[frustum_planes]; // converts world units to a plane's values
};

// The frustum of two matrices in column order, with room for the rounding of shaders and for lines
// and corners that touch pixels from just outside.
Frustum frustum_of(const float projection[16], const float modelview[16]);

// Whether all that extends at most `margin` world units beyond the box is outside one of the first
// `planes` planes. A frustum of zeros culls only empty boxes.
bool frustum_culls(const Frustum &frustum, const Box &box, double margin, int32_t planes);
