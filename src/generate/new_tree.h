#pragma once

#include "maze/maze.h"

// A new random tree of mazes, carved, with the final spacing of 2.5 world units. Mode 1 is a
// patchwork of topologies, mode 2 a ladder of mazes with growing corridor widths; both have labels.
// Any other mode is one topology, which can hold nested mazes, with random colours and sometimes
// with hills or stretched. Owned by the caller.
Maze *Maze_new_tree(int32_t mode);
