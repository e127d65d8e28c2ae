#pragma once

#include "maze/maze.h"

// Relaxations of a layout: one step that moves the nodes of this one maze, each with all that it
// holds. Levels above stay; a door takes no account of what lies beyond it.

// Moves each node by the fraction `k` of its way to the mean of its neighbours, all at once.
void Maze_smooth(Maze *maze, double k);

// Moves each node by `k` times the sum of forces that push it from every other node, each falling
// with the cube of the distance. Nodes at one and the same place become non-finite, and stay so.
void Maze_repel(Maze *maze, double k);
