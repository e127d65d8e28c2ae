#pragma once

#include "maze/maze.h"

// Draws the name of a maze, which must have one, in the world above it: 2 world units high, and
// what follows a second dot half that size. Needs the fonts "fmod" and "normal"; the latter is
// current afterwards.
void maze_label(const Maze *maze);
