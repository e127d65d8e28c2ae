#include "render/connected_area.h"

#include "generate/paint.h"
#include "gfx/gl.h"
#include "maze/lifetime.h"
#include "maze/reach.h"
#include "render/fixed_plot.h"

namespace {

constexpr uint32_t area_colour = 0x0000FF;

} // namespace

void connected_area_overlay(const World *world) {
  Maze *copy = Maze_reachable_copy(world->cur.maze, world->cur.node);
  Maze_paint(copy, area_colour, 0);
  glEnable(GL_BLEND);
  glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_COLOR);
  fixed_plot(copy, world, 0);
  glDisable(GL_BLEND);
  Maze_destroy(copy, 0);
}
