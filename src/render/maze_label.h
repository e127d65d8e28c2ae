#pragma once

#include "maze/maze.h"
#include "support/vec3.h"

// Draws the name of a maze, which must have one, in the world above it: 2 world units high, and
// what follows a second dot half that size. Needs the fonts "fmod" and "normal"; the latter is
// current afterwards.
void maze_label(const Maze *maze);

// The same for a maze whose bounds are known, see Maze_bounds. One without nodes has no place for
// it.
void maze_label_at(const char *name, Vec3 low, Vec3 high);
