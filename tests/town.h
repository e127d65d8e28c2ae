#pragma once

#include <cstdint>

#include "world/world.h"

// Worlds that spread far beyond the window, for comparing and measuring plots.

// A coloured plane of side x side nodes of which every second one holds a carved room, of about
// `room` units and of a random kind; with two passes rooms hold rooms. Draws from the running
// random sequence. Owned by the caller.
Maze *town(int32_t side, double room, int32_t passes);

// Some plain place of the tree, by chance.
Pos town_place(Maze *root);

// Looks at a place of the world's tree from `zoom` away, turned by the angles in radians.
void town_look(World *world, Pos cur, double zoom, double yaw, double pitch);

// Moves the user along `steps` random edges.
void town_walk(World *world, int32_t steps);
