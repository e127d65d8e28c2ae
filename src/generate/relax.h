#pragma once

#include "maze/maze.h"

// One step of a relaxation: moves the nodes of one maze, each with its submaze. Edges to other
// levels have no influence.

// Moves each node by the fraction `k` of its distance to the mean of its neighbours, all at once.
void Maze_smooth(Maze *maze, double k);

// Moves each node by `k` times the sum of the repulsions from all other nodes, each the inverse
// cube of the distance. Nodes at the same position get positions that are not finite.
void Maze_repel(Maze *maze, double k);
