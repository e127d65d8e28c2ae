#pragma once

#include "maze/maze.h"

// Mazes for tests and benchmarks. The caller owns the result and destroys it recursively. Seed the
// random numbers first.

// Nodes at (i, 0, 0), joined to a path.
Maze *scenario_path(int32_t count);

// A grid with all its edges, row by row from the minimum corner, around `centre`.
Maze *scenario_grid(int32_t width, int32_t height, double spacing, Vec3 centre);

// A random graph in a box with a volume of 1 per node. Tries to add `edges` edges; those that exist
// or do not fit are skipped. The colour of each node is its index.
Maze *scenario_random(int32_t count, int32_t edges);

// Makes `below` the submaze of a node. Moves nothing and chooses no doors.
void scenario_hold(Maze *maze, int32_t node, Maze *below);

// Moves one node.
void scenario_move(Maze *maze, int32_t node, Vec3 to);

// The root is 0 - [1: m1] - [2: m2] - 3, m1 is 0 - [2: n2] - [3: n3] - 1, m2 is 0 - 1, n2 is 0 - 1
// - 2, where 2 is no door, and n3 is 0 - 1.
struct ThreeLevels {
  Maze *root, *m1, *m2, *n2, *n3;
};
ThreeLevels scenario_three_levels();

// Grids of 4 x 4 nodes, each with three submazes around its middle, `depth` levels deep. The
// submazes are in place and have their doors.
Maze *scenario_nested(int32_t depth);

// `levels` mazes of two nodes, nested in each other's node 1.
Maze *scenario_deep(int32_t levels);
