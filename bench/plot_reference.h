#pragma once

#include "world/world.h"

// Reference implementations of the plots, for comparing pictures and times: each maze's display
// list is compiled when first drawn and called whether it is visible or not, and submazes are found
// by visiting all nodes.

// The line plot of the whole tree with the user's marker.
void reference_line_plot(const World *world);

// The other plots of the whole tree; the landscape in the mode `voronoi_mode`.
void reference_ballstick_plot(const World *world);
void reference_gantry_plot(const World *world);
void reference_voronoi_plot(const World *world);
void reference_fixed_plot(const World *world); // without labels

// The program's own plots of the whole tree, without the user's light.
void own_line_plot(const World *world);
void own_ballstick_plot(const World *world);
void own_gantry_plot(const World *world);
void own_voronoi_plot(const World *world);
void own_fixed_plot(const World *world);

using PlotDraw = void (*)(const World *world);

// Draws a depth slab over the frame and keeps its projection.
void plot_slab(const World *world, PlotDraw draw, void (*set_slab)(float matrix[16]));

// Compiles one of a maze's lists, 0 for edges and 1 for nodes.
void reference_line_compile(Maze *maze, int32_t which, uint32_t name);

// Drops what the reference plots keep of a maze where the plots' own attachment was dropped, as by
// a step.
void reference_follow_drops(Maze *maze);
