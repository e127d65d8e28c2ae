#include "render/disc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "gfx/gl.h"
#include "gfx/window.h"
#include "support/colour.h"

namespace {

constexpr double most_segments = 1000.0; // with the eye on the disc it would be infinitely many

// About five segments for the root of each pixel of the radius.
int32_t segments(double radius, double distance) {
  const int32_t quarter_height = screen_height / 4;
  const double pixels = radius * quarter_height / distance;
  const double count = 5.0 * std::sqrt(pixels);
  return count >= 1.0 ? static_cast<int32_t>(std::min(count, most_segments)) : 0;
}

void vertex(Vec3 place) {
  glVertex3d(place.x, place.y, place.z);
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
  glColor3ub(colour_red(colour), colour_green(colour), colour_blue(colour));
  vertex(centre);
  for (int32_t m = 0; m <= n; m++) {
    const double angle = 2.0 * std::numbers::pi * m / n;
    vertex(centre + radius * (std::sin(angle) * a + std::cos(angle) * b));
  }
  glEnd();
}
