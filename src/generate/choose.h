#pragma once

#include "maze/maze.h"

// A new random maze: a plane of about 2500 nodes, carved, coloured, perhaps bent into hills or
// stretched, and scaled to its final spacing of 2.5. Owned by the caller.
Maze *Maze_choose();
