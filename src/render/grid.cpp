#include "render/grid.h"

#include <cmath>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/pos.h"
#include "render/plot_switches.h"
#include "support/colour.h"

namespace {

constexpr int decades = 7;
constexpr int lines_per_axis = 21;

// Blue for the first three decades, green for the next, red for the last, brighter within each.
uint32_t decade_colour(int decade) {
  const double v = decade % 3 * 0.1;
  if (decade < 3) return rgb_colour(v, v, v + 0.5);
  if (decade < 6) return rgb_colour(v, v + 0.5, v);
  return rgb_colour(v + 0.5, v, v);
}

void grid_level(Vec3 centre, int decade) {
  const double spacing = std::pow(10.0, decade);
  const double half_side = 10.0 * spacing;
  const double ox = std::floor(centre.x / half_side - 0.5) * half_side;
  const double oy = std::floor(centre.y / half_side - 0.5) * half_side;
  gfx_set_colour(decade_colour(decade));
  for (int j = lines_per_axis - 1; j >= 0; j--) {
    const double along = j * spacing;
    glVertex3d(ox + along, oy, centre.z);
    glVertex3d(ox + along, oy + 2.0 * half_side, centre.z);
    glVertex3d(ox, oy + along, centre.z);
    glVertex3d(ox + 2.0 * half_side, oy + along, centre.z);
  }
}

} // namespace

void grid_overlay(const World *world) {
  const Vec3 centre = Pos_position(world->cur);
  if (plot_smooth_lines != 0) {
    smooth_lines_on(1, 1.5F);
  } else {
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_COLOR);
  }
  glDepthMask(0);
  glBegin(GL_LINES);
  for (int decade = 0; decade < decades; decade++)
    grid_level(centre, decade);
  glEnd();
  glDepthMask(1);
  if (plot_smooth_lines != 0) {
    smooth_lines_off();
  } else {
    glDisable(GL_BLEND);
  }
}
