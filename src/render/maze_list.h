#pragma once

#include "maze/maze.h"

// Calls the display list that is kept with each maze of a tree under an attachment of that name,
// a maze before those it holds, last holder first. Where it is missing it is compiled from what
// `body` draws of the maze. Only then are nodes walked, so a frame in which nothing changed costs
// one call a maze.
void maze_list_call(Maze *maze, const char *name, void (*body)(Maze *maze));
