#pragma once

#include <vector>

#include "maze/maze.h"
#include "support/vec3.h"

// Generation step by step, without any optimisation. The program must make the same trees from the
// same random numbers.

// Cuts every edge in random order and searches each time whether its ends still hang together.
Maze *reference_carved(const Maze *maze);

// The weld with a search through all of b for each node of a.
Maze *reference_weld(const Maze *a, const Maze *b);

// The surface of a box and the uncarved patchwork, with that weld.
Maze *reference_box(int32_t a, int32_t b, int32_t c);
Maze *reference_patchwork();

// A whole new tree, of the mode 0 or 1. Of the program's own code it uses the builders, but not
// the box, and the transforms.
Maze *reference_choose(int32_t mode);

// The sum of forces on each node, pair by pair.
std::vector<Vec3> reference_repulsion(const Maze *maze);
