#pragma once

#include <cstdint>

#include "world/world.h"

// Large worlds and walks for comparing and measuring plots. Seed the random numbers first.

// A coloured plane of side x side nodes; about half of them hold random carved mazes of size
// `extent`. With two passes those hold mazes too. Owned by the caller.
Maze *large_world(int32_t side, double extent, int32_t passes);

// Looks at a node from the distance `zoom`, with the angles in radians.
void large_world_look(World *world, Pos cur, double zoom, double yaw, double pitch);

// Moves the user along `steps` random edges.
void large_world_walk(World *world, int32_t steps);
