#include "render/plot.h"

#include "render/ballstick.h"
#include "render/connected_area.h"
#include "render/fixed_plot.h"
#include "render/gantry_plot.h"
#include "render/grid.h"
#include "render/line_plot.h"
#include "render/plot_switches.h"
#include "render/voronoi_plot.h"

void plot_world(const World *world) {
  if (plot_voronoi != 0)
    voronoi_plot(world->root, world);
  else if (plot_type == plot_type_gantry)
    gantry_plot(world->root, world, plot_light);
  else if (plot_type == plot_type_balls)
    ballstick_plot(world->root, world, plot_light);
  else if (plot_fixed != 0)
    fixed_plot(world->root, world, 1);
  else
    line_plot(world);
  if (plot_connected != 0) connected_area_overlay(world);
  if (plot_grid != 0) grid_overlay(world);
}
