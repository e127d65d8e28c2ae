#pragma once

#include "maze/maze.h"

// Mazes for tests and benchmarks. The caller owns what comes back and destroys it recursively.
// What is random draws from the running sequence: seed it first.

// Nodes at (i, 0, 0), joined in a row.
Maze *scenario_path(int32_t count);

// A grid with all its edges, row by row from the lowest x and y, around `centre`.
Maze *scenario_grid(int32_t width, int32_t height, double spacing, Vec3 centre);

// A graph without doubled edges in a box with room of 1 x 1 x 1 per node. Makes `edges` tries, so
// the dense ones get fewer edges. Each node has its index as self.colour.
Maze *scenario_random(int32_t count, int32_t edges);

// Hangs `below` on a plain node. Moves and aligns nothing.
void scenario_hold(Maze *maze, int32_t node, Maze *below);

// Moves one node.
void scenario_move(Maze *maze, int32_t node, Vec3 to);

// 0 - [1: m1] - [2: m2] - 3, where m1 is 0 - [2: n2] - [3: n3] - 1. Also m2 is 0 - 1, n2 is
// 0 - 1 - 2, of which 2 is no door, and n3 is 0 - 1.
struct ThreeLevels {
  Maze *root, *m1, *m2, *n2, *n3;
};
ThreeLevels scenario_three_levels();

// Grids of 4 x 4 with three containers in a row in the middle of each, each in its place in the
// world and aligned, `depth` levels of them (1 for the root alone).
Maze *scenario_nested(int32_t depth);

// `levels` mazes of two nodes, each but the last with the next one in its node 1.
Maze *scenario_deep(int32_t levels);
