#pragma once

#include "world/world.h"

// Destroys the tree, then makes a new one (see World_new_maze). Sets the clock to 0 and replaces
// the Roamers, whose places are gone, by so many new ones.
void World_replace_maze(World *world, int32_t mode, uint32_t roamers);
