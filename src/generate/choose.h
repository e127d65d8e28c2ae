#pragma once

#include "maze/maze.h"

// A new random tree of mazes, carved and scaled to its final spacing of 2.5. Mode 1 is a patchwork
// of topologies, mode 2 a ladder of rooms of growing corridor width, both with labels; any other
// mode is a single topology, perhaps with mazes nested in its nodes, coloured and perhaps bent into
// hills or stretched. Owned by the caller.
Maze *Maze_choose(int32_t mode);
