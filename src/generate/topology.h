#pragma once

#include "maze/maze.h"

// Makes an uncarved maze that spans at most about size - 1 along an axis, so that mazes of one size
// fit side by side on a grid of that spacing. The caller owns it.
using SubmazeGenerator = Maze *(*)(double size);

// One of the eleven topologies by chance, of size `s`, at least 2. A topology that needs a larger
// size gives way to a cube of eight nodes, which can happen below 7.
Maze *Maze_random_topology(double s);
