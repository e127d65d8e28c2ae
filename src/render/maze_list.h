#pragma once

#include "maze/maze.h"
#include "world/world.h"

// Calls the display list that is kept with each maze of a tree under an attachment of that name,
// a maze before those it holds, last holder first. Where it is missing it is compiled from what
// `body` draws of the maze; `world` is handed on to it. Only then are nodes walked, so a frame in
// which nothing changed costs one call a maze.
using MazeListBody = void (*)(Maze *maze, const World *world);
void maze_list_call(Maze *maze, const char *name, MazeListBody body, const World *world);
