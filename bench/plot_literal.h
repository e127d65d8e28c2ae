#pragma once

#include "world/world.h"

// The plots as their rules are told, without any thrift: each maze's lists are compiled when first
// asked for and called whether they can be seen or not, and the mazes below are found by going
// through all nodes. For comparing pictures and for measuring against.

// The line plot of the whole tree with the user's marker.
void literal_line_plot(const World *world);

// The other plots of the whole tree; the last one in the mode of the moment.
void literal_ballstick_plot(const World *world);
void literal_gantry_plot(const World *world);
void literal_voronoi_plot(const World *world);
void literal_fixed_plot(const World *world); // but for names

// The program's own plots of the whole tree, without the user's light, to be called in the same
// way.
void own_line_plot(const World *world);
void own_ballstick_plot(const World *world);
void own_gantry_plot(const World *world);
void own_voronoi_plot(const World *world);
void own_fixed_plot(const World *world);

using PlotDraw = void (*)(const World *world);

// Draws a depth slab over what is there, and leaves the projection with its depth.
void plot_slab(const World *world, PlotDraw draw, void (*set_slab)(float matrix[16]));

// Compiles one of a maze's lists, 0 for edges and 1 for nodes.
void literal_line_compile(Maze *maze, int32_t which, uint32_t name);

// Drops what these keep of all mazes.
void literal_drop_tree(Maze *maze);

// Drops it where the plot's own has been dropped, as after steps.
void literal_follow_drops(Maze *maze);
