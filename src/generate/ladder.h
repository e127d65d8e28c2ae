#pragma once

#include "maze/maze.h"

// A line of twelve nodes whose inner ten hold square mazes, each larger than the one before and
// with wider corridors, and each with one door towards either neighbour on the line. The caller
// owns the tree.
Maze *Maze_ladder();
