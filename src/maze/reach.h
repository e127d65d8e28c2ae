#pragma once

#include <cstdint>

#include "maze/maze.h"

// Breadth-first searches within one maze.

// One byte per node, not 0 if the node can be reached from `start`. Free it with std::free.
uint8_t *Maze_reach(const Maze *maze, int32_t start);

// Number of edges of the shortest path from a to b (1 for a = b), or 0 if there is none. `out`, if
// not null, gets that number (0 for a = b). Without a path it gets the node count of one component:
// positive for a's, negative for b's.
int32_t Maze_connected(const Maze *maze, int32_t a, int32_t b, int32_t *out);

// A shallow copy of the component of `start`; nodes can get other indices.
Maze *Maze_reachable_copy(const Maze *maze, int32_t start);
