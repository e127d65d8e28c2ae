#pragma once

#include <cstdint>

#include "support/box.h"

// The view frustum, which culls boxes. All tests are conservative: a box is culled only if nothing
// in it can touch a pixel.

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
