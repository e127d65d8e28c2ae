#include "large_world.h"

#include "generate/carve.h"
#include "generate/topologies.h"
#include "generate/nest.h"
#include "generate/paint.h"
#include "generate/transform.h"
#include "maze/pos.h"
#include "maze/visit.h"
#include "support/random.h"
#include "world/camera.h"

Maze *large_world(int32_t side, double extent, int32_t passes) {
  Maze *root = Maze_plane_xy(side, side);
  Maze_carve(root);
  for (int32_t pass = 0; pass < passes; pass++)
    Maze_nest(root, 0.5, extent, Maze_random_topology);
  Maze_colour_field(root, colour_field_sine, 1);
  Maze_scale(root, 2.5, 1);
  return root;
}

void large_world_look(World *world, Pos cur, double zoom, double yaw, double pitch) {
  world->cur = cur;
  world->zoom = zoom;
  world->view = camera_orientation(yaw, pitch);
  World_place_camera(world);
}

void large_world_walk(World *world, int32_t steps) {
  for (int32_t step = 0; step < steps; step++) {
    Pos ways[pos_max_edges];
    const int32_t count = Pos_alledges(world->cur.maze, world->cur.node, ways, nullptr);
    const Pos from = world->cur, to = ways[rand_int(count)];
    Pos_mark_usertime(from.maze, from.node, to.maze, to.node, world->time);
    world->cur = to;
    world->time += 1.0;
  }
}
