#include "world/world.h"

#include "generate/choose.h"
#include "maze/pos.h"

void World_new(World *world, int32_t mode) {
  world->view = mat3_identity;
  world->time = 0.0;
  world->zoom = initial_zoom;
  world->showtrail = 1;
  GrowList_init(&world->roamers, sizeof(Roamer));
  World_new_maze(world, mode);
  World_place_camera(world);
}

void World_place_camera(World *world) {
  world->camera = Pos_position(world->cur) + world->zoom * Mat3_row(world->view, 2);
}

void World_new_maze(World *world, int32_t mode) {
  world->root = Maze_choose(mode);
  world->cur = World_first_place(world->root);
  world->offset = {0, 0, 0};
}

Pos World_first_place(Maze *root) {
  Maze *maze = root;
  // A node that holds a submaze is no place to stand on.
  while (maze_nodes(maze)[0].submaze != nullptr)
    maze = maze_nodes(maze)[0].submaze;
  return {maze, 0};
}

void World_free(World *world) {
  Maze_destroy(world->root, 1);
  world->root = nullptr;
  world->cur = Pos_null;
  GrowList_free(&world->roamers);
}
