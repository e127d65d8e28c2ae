#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The plot of metal walkways: edges are flat roads with mitred corners, nodes the hubs where they
// meet, of perforated plate with lower levels visible through the holes. There is no marker. A maze
// keeps its draw cache as the attachment "gantrylist".

// Draws a tree. With `light` the user carries a light. The first call makes the textures.
void gantry_plot(Maze *root, const World *world, int32_t light);

// Calls the display lists of a maze and of all below it that the current View shows. Compiles those
// that are missing.
void gantry_list_call(Maze *maze);

// Send the primitives of one maze in immediate mode: the roads within GL_QUADS, each by the end
// that comes first (Pos_before), and the hubs within GL_TRIANGLES.
void gantry_road_quads(Maze *maze);
void gantry_hub_triangles(Maze *maze);
