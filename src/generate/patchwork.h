#pragma once

#include "maze/maze.h"

// An uncarved maze of random topologies, each with a colour of its own and some turned at random,
// laid over each other on a square of 5 by 5 and welded where they meet; tiles that don't hang
// together with the first are left out. The caller owns it.
Maze *Maze_patchwork();
