#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The plot of metal walkways: edges as flat roads that are mitred where they meet, nodes as hubs
// between them, all of perforated plate through whose holes lower levels are seen. No marker shows
// the user. The compiled list of a maze is its attachment "gantrylist".

// Draws a whole tree; with `light` the user carries one. The first call makes the textures.
void gantry_plot(Maze *root, const World *world, int32_t light);

// Calls the compiled lists of a maze and of all below it that may be seen, compiling those that are
// missing.
void gantry_list_call(Maze *maze);

// The body of a list in immediate mode, between begin and end: the roads as quads, each from the
// lesser end of its edge only, and the hubs as triangles.
void gantry_road_quads(Maze *maze);
void gantry_hub_triangles(Maze *maze);
