#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "support/vec3.h"

// Colours of the nodes and edges of a maze and, if `recursive` is not 0, of all mazes below it.

using ColourFunction = uint32_t (*)(Vec3 position);

// Sets one colour everywhere.
void Maze_paint(Maze *root, uint32_t colour, int32_t recursive);

// Sets the colour of nodes by their positions and of edges by their midpoints.
void Maze_colour_field(Maze *root, ColourFunction fn, int32_t recursive);

// Red, green and blue are 0.25 (sin(c / 10) + 1) of x, y and z.
uint32_t colour_field_sine(Vec3 p);
