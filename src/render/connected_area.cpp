#include "render/connected_area.h"

#include "gfx/gl.h"
#include "maze/reach.h"
#include "render/fixed_plot.h"

namespace {

constexpr uint32_t area_colour = 0x0000FF;

void paint(Maze *maze) {
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    MazeNode &node = maze_nodes(maze)[i];
    node.self.colour = area_colour;
    for (uint32_t row = 0; row < node.degree; row++)
      node.edge[row].colour = area_colour;
  }
}

} // namespace

void connected_area_overlay(const World *world) {
  Maze *copy = Maze_reachable_copy(world->cur.maze, world->cur.node);
  paint(copy);
  glEnable(GL_BLEND);
  glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_COLOR);
  fixed_plot(copy, world, 0);
  glDisable(GL_BLEND);
  Maze_destroy(copy, 0);
}
