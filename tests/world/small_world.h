#pragma once

#include "world/world.h"

// A session at node 0 of a tree, which it owns, looking down.
struct SmallWorld : World {
  explicit SmallWorld(Maze *tree) : World{} {
    root = tree;
    cur = {tree, 0};
    view = mat3_identity;
    zoom = 13.7;
    GrowList_init(&roamers, sizeof(Roamer));
  }
  SmallWorld(const SmallWorld &) = delete;
  SmallWorld &operator=(const SmallWorld &) = delete;
  ~SmallWorld() { World_free(this); }
};
