#pragma once

#include "maze/maze.h"

// Builders of uncarved lattices: every node joined to all its neighbours, with a spacing of 1.
// Counts are in nodes; a count below 1 gives a maze without nodes. The caller owns the result.

// Node (col, row) has index row * w + col and stands at (col, row, 0).
Maze *Maze_plane_xy(int32_t w, int32_t h);

// The same at (col, 0, row).
Maze *Maze_plane_xz(int32_t w, int32_t h);

// The same at (0, col, row).
Maze *Maze_plane_yz(int32_t w, int32_t h);

// Node (x, y, z) has index (z * h + y) * w + x.
Maze *Maze_grid3d(int32_t w, int32_t h, int32_t d);
