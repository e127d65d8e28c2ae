#pragma once

#include "maze/maze.h"

// Breaks every loop of a maze: each edge is tried once, in random order, and goes unless its two
// ends would fall apart (reverse deletion). What is left is a random spanning tree of each
// component. Numbering, places, colours, submazes, halfwidth and name are kept, and the times of
// the edges are back at never. A node's rows change their order: each kept edge is taken out, which
// moves the last row into its place, and put back at the end. The rows must be symmetric, no node
// joined to itself; an edge may stand twice.
void Maze_carve(Maze *maze);

// A carved copy, submazes included, owned by the caller.
Maze *Maze_carved(const Maze *maze);
