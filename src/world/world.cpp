#include "world/world.h"

#include "generate/new_tree.h"
#include "maze/lifetime.h"
#include "maze/pos.h"

namespace {

void enter(World *world, Maze *root) {
  world->root = root;
  world->cur = World_first_place(root);
  world->offset = {0, 0, 0};
}

} // namespace

void World_new(World *world, int32_t mode) {
  World_begin(world, Maze_new_tree(mode));
}

void World_begin(World *world, Maze *root) {
  world->view = mat3_identity;
  world->time = 0.0;
  world->zoom = initial_zoom;
  world->showtrail = 1;
  GrowList_init(&world->roamers, sizeof(Roamer));
  enter(world, root);
  World_place_camera(world);
}

void World_place_camera(World *world) {
  world->camera = Pos_position(world->cur) + world->zoom * Mat3_row(world->view, 2);
}

void World_new_maze(World *world, int32_t mode) {
  enter(world, Maze_new_tree(mode));
}

Pos World_first_place(Maze *root) {
  Pos pos = {root, 0};
  for (;;) {
    if (pos.node < maze_count(pos.maze)) {
      Maze *below = maze_nodes(pos.maze)[pos.node].submaze;
      if (below == nullptr) return pos;
      pos = {below, 0};
    } else {
      if (pos.maze == root) return Pos_null;
      pos = {pos.maze->parent, pos.maze->parentnode + 1};
    }
  }
}

void World_free(World *world) {
  Maze_destroy(world->root, 1);
  world->root = nullptr;
  world->cur = Pos_null;
  GrowList_free(&world->roamers);
}
