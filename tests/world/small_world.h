#pragma once

#include "world/world.h"

// A session at node 0 of a tree, which it owns, looking down on (0, 0).
struct SmallWorld : World {
  explicit SmallWorld(Maze *tree) : World{} {
    root = tree;
    cur = {tree, 0};
    view = mat3_identity;
    zoom = camera.z = 13.7;
    showtrail = 1;
    GrowList_init(&roamers, sizeof(Roamer));
  }
  SmallWorld(const SmallWorld &) = delete;
  SmallWorld &operator=(const SmallWorld &) = delete;
  ~SmallWorld() { World_free(this); }
};
