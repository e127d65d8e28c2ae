#pragma once

#include <vector>

#include "maze/maze.h"
#include "support/vec3.h"

// Reference implementations of generation, which follow the rules step by step. The program must
// make the same trees from the same random numbers.

// Cuts every edge in random order, and restores it if its ends are no longer connected.
Maze *reference_carved(const Maze *maze);

// The weld by brute force.
Maze *reference_weld(const Maze *a, const Maze *b);

// The surface of a box and the uncarved patchwork, with that weld.
Maze *reference_box(int32_t a, int32_t b, int32_t c);
Maze *reference_patchwork();

// A whole new tree of mode 0 or 1. Uses the program's transforms and builders, except for the box.
Maze *reference_choose(int32_t mode);

// The colour field of a new tree, by its formula.
uint32_t reference_sine(Vec3 p);

// The sum of forces on each node, pair by pair.
std::vector<Vec3> reference_repulsion(const Maze *maze);
