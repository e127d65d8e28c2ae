#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "support/vec3.h"

// The colours of nodes and edges of a maze and, with `recursive`, of all mazes below it.

using ColourFunction = uint32_t (*)(Vec3 position);

// One colour for all nodes and edges.
void Maze_paint(Maze *root, uint32_t colour, int32_t recursive);

// Nodes by their places, edges by their midpoints.
void Maze_colour_field(Maze *root, ColourFunction fn, int32_t recursive);

// Red follows x, green y and blue z, each by a slow sine between 0 and a half.
uint32_t colour_field_sine(Vec3 p);
