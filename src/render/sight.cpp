#include "render/sight.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "gfx/gl.h"

bool sight_excludes_nothing = false;

namespace {

// A shader rounds to 24 bits in each of some ten steps.
constexpr double rounding = 1.0 / (1 << 18);

// Of half the picture; a line or a rounded corner just outside still touches pixels inside.
constexpr double guard = 1.02;

// One row of the product of two matrices, and the same with no cancellation between its terms.
struct ClipRow {
  double value[4], size[4];
};

ClipRow clip_row(const float *projection, const float *modelview, int row) {
  ClipRow out = {};
  for (int column = 0; column < 4; column++) {
    for (int k = 0; k < 4; k++) {
      const double term = static_cast<double>(projection[k * 4 + row]) *
                          static_cast<double>(modelview[column * 4 + k]);
      out.value[column] += term;
      out.size[column] += std::abs(term);
    }
  }
  return out;
}

// The plane at which `scale` times w plus `sign` times the row's coordinate is zero.
void set_plane(Sight *sight, int plane, const ClipRow &w, double scale, const ClipRow &row,
               double sign) {
  for (int i = 0; i < 4; i++) {
    sight->plane[plane][i] = scale * w.value[i] + sign * row.value[i];
    sight->error[plane][i] = rounding * (scale * w.size[i] + row.size[i]);
  }
  const double *p = sight->plane[plane];
  sight->steepness[plane] = length({p[0], p[1], p[2]});
}

} // namespace

void Box_add(Box *box, Vec3 point) {
  if (!is_finite(point)) {
    *box = {box_empty.high, box_empty.low};
    return;
  }
  box->low = {std::min(box->low.x, point.x), std::min(box->low.y, point.y),
              std::min(box->low.z, point.z)};
  box->high = {std::max(box->high.x, point.x), std::max(box->high.y, point.y),
               std::max(box->high.z, point.z)};
}

void Box_add_ball(Box *box, Vec3 centre, double radius) {
  const double reach = std::numbers::sqrt3 * radius; // of the cube's corners, however it is turned
  Box_add(box, centre - Vec3{reach, reach, reach});
  Box_add(box, centre + Vec3{reach, reach, reach});
}

void Box_unite(Box *box, const Box &other) {
  box->low = {std::min(box->low.x, other.low.x), std::min(box->low.y, other.low.y),
              std::min(box->low.z, other.low.z)};
  box->high = {std::max(box->high.x, other.high.x), std::max(box->high.y, other.high.y),
               std::max(box->high.z, other.high.z)};
}

double Box_farthest(const Box &box, Vec3 from) {
  return length({std::max(std::abs(box.low.x - from.x), std::abs(box.high.x - from.x)),
                 std::max(std::abs(box.low.y - from.y), std::abs(box.high.y - from.y)),
                 std::max(std::abs(box.low.z - from.z), std::abs(box.high.z - from.z))});
}

Sight sight_now() {
  float projection[16], modelview[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  glGetFloatv(GL_MODELVIEW_MATRIX, modelview);
  Sight sight = {};
  const ClipRow w = clip_row(projection, modelview, 3);
  for (int axis = 0; axis < 3; axis++) {
    const ClipRow row = clip_row(projection, modelview, axis);
    const double scale = axis < 2 ? guard : 1.0;
    set_plane(&sight, axis * 2, w, scale, row, 1.0);
    set_plane(&sight, axis * 2 + 1, w, scale, row, -1.0);
  }
  return sight;
}

// The corner that lies furthest on the inner side decides. What isn't a number excludes nothing.
bool Sight_excludes(const Sight &sight, const Box &box, double growth, int32_t planes) {
  if (sight_excludes_nothing) return false;
  if (box.low.x > box.high.x) return true;
  const double low[] = {box.low.x, box.low.y, box.low.z};
  const double high[] = {box.high.x, box.high.y, box.high.z};
  for (int32_t k = 0; k < planes; k++) {
    const double *plane = sight.plane[k], *error = sight.error[k];
    double most = plane[3] + error[3] + growth * sight.steepness[k];
    for (int i = 0; i < 3; i++) {
      most += plane[i] > 0 ? plane[i] * high[i] : plane[i] * low[i];
      most += error[i] * std::max(std::abs(low[i]), std::abs(high[i]));
    }
    if (most < 0) return true;
  }
  return false;
}
