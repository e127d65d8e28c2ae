#pragma once

#include <cstdint>

#include "world/world.h"

// Large worlds and walks for comparing and measuring plots. They use the global random sequence.

// A coloured plane of side x side nodes, half of which hold a carved maze of about `extent` units
// and of a random topology; with two passes these hold mazes too. Owned by the caller.
Maze *town(int32_t side, double extent, int32_t passes);

// Moves the user, and puts the camera `zoom` units away, turned by angles in radians.
void town_look(World *world, Pos cur, double zoom, double yaw, double pitch);

// Moves the user along `steps` random edges.
void town_walk(World *world, int32_t steps);
