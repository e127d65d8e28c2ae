#pragma once

#include <cstdint>

#include "world/world.h"

// Large worlds and walks for comparing and measuring plots. They draw from the running random
// sequence.

// A coloured plane of side x side nodes of which every second one holds a carved maze, of about
// `extent` units and of a random kind; with two passes these hold mazes as well. Owned by the
// caller.
Maze *town(int32_t side, double extent, int32_t passes);

// Looks at a place of the world's tree from `zoom` away, turned by the angles in radians.
void town_look(World *world, Pos cur, double zoom, double yaw, double pitch);

// Moves the user along `steps` random edges.
void town_walk(World *world, int32_t steps);
