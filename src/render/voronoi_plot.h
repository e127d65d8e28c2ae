#pragma once

#include "maze/maze.h"
#include "world/world.h"

// The maze as a landscape of cells, in one of the six ways that `voronoi_mode` names, in the fixed
// pipeline. A maze's cells and its compiled list, the attachments "voronoi" and "voronoilist", are
// made when they are found missing; the list keeps the colours of that moment.

// Draws a tree of mazes and, after the maze where the user is, his marker, which stands a little
// towards the eye.
void voronoi_plot(Maze *maze, const World *world);

// Lights the scene from one direction of the current modelview, with the colours of vertices.
void fixed_light_on();
