#include "render/disc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/window.h"
#include "render/gl/immediate.h"

namespace {

constexpr double max_segments = 1000.0; // with the eye on the disc it would be infinite

// Five times the square root of the radius in pixels, roughly.
int32_t segments(double radius, double distance) {
  const int32_t quarter_height = screen_height / 4;
  const double pixels = radius * quarter_height / distance;
  const double count = 5.0 * std::sqrt(pixels);
  return count >= 1.0 ? static_cast<int32_t>(std::min(count, max_segments)) : 0;
}

} // namespace

void perpendicular_pair(Vec3 v, Vec3 *a, Vec3 *b) {
  const bool steep = std::abs(v.z) > std::abs(v.x);
  *a = unit(cross(v, steep ? Vec3{1, 0, 0} : Vec3{0, 0, 1}));
  *b = unit(cross(v, *a));
}

void fan_disc(Vec3 centre, double radius, uint32_t colour, Vec3 eye) {
  const int32_t n = segments(radius, length(centre - eye));
  if (n == 0) return;
  Vec3 a, b;
  perpendicular_pair(centre - eye, &a, &b);
  glBegin(GL_TRIANGLE_FAN);
  gfx_set_colour(colour);
  send_vertex(centre);
  for (int32_t m = 0; m <= n; m++) {
    const double angle = 2.0 * std::numbers::pi * m / n;
    send_vertex(centre + radius * (std::sin(angle) * a + std::cos(angle) * b));
  }
  glEnd();
}
