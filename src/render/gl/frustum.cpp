#include "render/gl/frustum.h"

#include <algorithm>
#include <cmath>

namespace {

// A shader rounds to 24 bits in each of about ten steps.
constexpr double rounding = 1.0 / (1 << 18);

// Scales the side planes: a line or a rounded corner just outside still touches pixels inside.
constexpr double side_guard = 1.02;

// One row of the product of two matrices, and the sum of the terms' sizes.
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

// The plane where `scale` times w plus `sign` times the row's coordinate is zero.
void set_plane(Frustum *frustum, int plane, const ClipRow &w, double scale, const ClipRow &row,
               double sign) {
  for (int i = 0; i < 4; i++) {
    frustum->plane[plane][i] = scale * w.value[i] + sign * row.value[i];
    frustum->rounding_slack[plane][i] = rounding * (scale * w.size[i] + row.size[i]);
  }
  const double *p = frustum->plane[plane];
  frustum->normal_length[plane] = length({p[0], p[1], p[2]});
}

} // namespace

Frustum frustum_of(const float projection[16], const float modelview[16]) {
  Frustum frustum = {};
  const ClipRow w = clip_row(projection, modelview, 3);
  for (int axis = 0; axis < 3; axis++) {
    const ClipRow row = clip_row(projection, modelview, axis);
    const double scale = axis < 2 ? side_guard : 1.0;
    set_plane(&frustum, axis * 2, w, scale, row, 1.0);
    set_plane(&frustum, axis * 2 + 1, w, scale, row, -1.0);
  }
  return frustum;
}

// For each plane, tests the corner of the box that is farthest inside. A NaN culls nothing.
bool frustum_culls(const Frustum &frustum, const Box &box, double margin, int32_t planes) {
  if (box.low.x > box.high.x) return true;
  const double low[] = {box.low.x, box.low.y, box.low.z};
  const double high[] = {box.high.x, box.high.y, box.high.z};
  for (int32_t k = 0; k < planes; k++) {
    const double *plane = frustum.plane[k], *slack = frustum.rounding_slack[k];
    double value = plane[3] + slack[3] + margin * frustum.normal_length[k];
    for (int i = 0; i < 3; i++) {
      value += plane[i] > 0 ? plane[i] * high[i] : plane[i] * low[i];
      value += slack[i] * std::max(std::abs(low[i]), std::abs(high[i]));
    }
    if (value < 0) return true;
  }
  return false;
}
