#pragma once

#include "maze/maze.h"
#include "world/world.h"

// The maze as a landscape of cells, in one of the six modes of `voronoi_mode`, with the fixed
// pipeline. The attachments "voronoi" and "voronoilist" keep a maze's cells and its draw cache,
// which has the colours of the time when it was built; where Roamers walk, chunks are renewed.

// Draws a tree of mazes and, after the user's maze, a marker, a little nearer to the camera than
// the user's place.
void voronoi_plot(Maze *maze, const World *world);

// Turns on one light from a fixed direction of the current modelview, with vertex colours as the
// material.
void fixed_light_on();
