#pragma once

#include "maze/maze.h"
#include "render/sight.h"
#include "world/world.h"

// Draws the nodes from `first` to before `end` of a maze in immediate mode, last node first, and
// widens the box by all that this can put into the picture, or into its depth, in any view.
using MazeListBody = void (*)(Maze *maze, int32_t first, int32_t end, const World *world, Box *box);

// What is kept with each maze under an attachment of that name.
struct MazeListKind {
  const char *name;
  MazeListBody body;
  int32_t chunk;  // nodes a display list; INT32_MAX where their order reaches across the maze
  int32_t planes; // how many planes of a sight leave out what is beyond
};

// Calls the display lists of each maze of a tree, a maze before those it holds, last holder first.
// Where they are missing they are compiled from what the body draws; `world` is handed on to it.
// What lies outside one of the planes of the current sight is left out, mazes with all below them.
// Nodes are walked only where something is missing.
void maze_list_call(Maze *maze, const MazeListKind &kind, const World *world);
