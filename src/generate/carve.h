#pragma once

#include "maze/maze.h"

// A new maze, owned by the caller, in which every loop of `maze` has been broken: each edge is
// tried once, in random order, and goes unless its two ends would fall apart (reverse deletion).
// The result is a random spanning tree of each component. Numbering, places, colours, halfwidth
// and name are kept, submazes are copied along, and the times of the edges are back at never. A
// node's rows are not in the order of the input: a kept edge is taken out, which moves the last
// row into its place, and put back at the end.
Maze *Maze_carved(const Maze *maze);
