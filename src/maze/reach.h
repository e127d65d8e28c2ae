#pragma once

#include <cstdint>

#include "maze/maze.h"

// Breadth-first searches over one maze; they do not pass doors.

// One byte per node, non-zero where the node can be reached from `start`. The caller frees it.
uint8_t *Maze_reach(const Maze *maze, int32_t start);

// Length in edges of the shortest way from a to b (1 for a = b), or 0 if there is none. `out`, if
// not null, gets the length (0 for a = b), or, where there is no way, the node count of the side
// that was found closed: positive for a's, negative for b's.
int32_t Maze_connected(const Maze *maze, int32_t a, int32_t b, int32_t *out);

// A shallow copy cut down to what can be reached from `start`; nodes may get new indices.
Maze *Maze_reachable_copy(const Maze *maze, int32_t start);
