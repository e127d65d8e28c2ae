#include "render/plot.h"

#include "render/grid.h"
#include "render/line_plot.h"
#include "render/maze_label.h"

int32_t plot_grid = 0;
int32_t plot_smooth_lines = 1;

void plot_world(const World *world) {
  if (world->root->name != nullptr) maze_label(world->root);
  line_edges_pass(world->root, world, 1);
  line_nodes_pass(world->root, world, 1);
  if (plot_grid != 0) grid_overlay(world);
}
