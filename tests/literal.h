#pragma once

#include <vector>

#include "maze/maze.h"
#include "support/vec3.h"

// The generation told step by step, with nothing made quicker: what the program does in other ways
// must come out the same. Draws from the running sequence.

// Cuts every edge in random order and searches each time whether its ends still hang together.
Maze *literal_carved(const Maze *maze);

// The weld with a search through all of b for each node of a.
Maze *literal_weld(const Maze *a, const Maze *b);

// The surface of a box and the uncarved patchwork, by literal welds.
Maze *literal_box(int32_t a, int32_t b, int32_t c);
Maze *literal_patchwork();

// A whole new tree, of the mode 0, 1 or 2. Of the program's own code it uses the builders, but not
// the box, and the transforms.
Maze *literal_choose(int32_t mode);

// The sum of forces on each node, pair by pair.
std::vector<Vec3> literal_repulsion(const Maze *maze);

// Whether two trees are the same in every field of every node, all levels, or why not.
const char *literal_difference(const Maze *a, const Maze *b);
