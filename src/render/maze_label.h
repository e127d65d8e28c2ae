#pragma once

#include "maze/maze.h"
#include "support/vec3.h"

// Draws the name of a maze, which must have one, in the world above it: 2 world units high, and
// what follows a second dot half that size. Needs the fonts "fmod" and "normal", and leaves
// "normal" current. Visits no nodes if the line plot has built the caches of the maze's tree.
void maze_label(const Maze *maze);

// The same for a name and the bounds of its maze, see Maze_bounds. Empty bounds show nothing.
void maze_label_at(const char *name, Vec3 low, Vec3 high);

// A rectangle that such a name fits into.
struct MazeLabelCorners {
  Vec3 low, high;
};
MazeLabelCorners maze_label_corners(const char *name, Vec3 low, Vec3 high);
