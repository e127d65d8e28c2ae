#include "world/new_maze.h"

#include "maze/lifetime.h"
#include "world/roamer.h"

void World_replace_maze(World *world, int32_t mode, uint32_t roamers) {
  Maze *old = world->root;
  world->root = nullptr; // an end of the program now must not save a tree that is half destroyed
  Maze_destroy(old, 1);
  World_new_maze(world, mode);
  world->time = 0.0;
  GrowList_clear(&world->roamers);
  World_set_roamers(world, roamers);
}
