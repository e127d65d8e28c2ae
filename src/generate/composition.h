#pragma once

#include "maze/maze.h"

// Mazes made of several topologies. The caller owns them.

// An uncarved patchwork: 5 x 5 random topologies, overlapping and welded, each with its own colour
// and some turned at random. What is not connected to the first tile is removed.
Maze *Maze_patchwork();

// A line of twelve nodes whose inner ten hold carved square mazes, each larger than the one before
// and with wider corridors. Each has a door to both neighbours on the line.
Maze *Maze_ladder();
