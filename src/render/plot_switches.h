#pragma once

#include <cstdint>

enum PlotType : int32_t { plot_type_lines, plot_type_gantry, plot_type_balls };
constexpr int32_t plot_types = 3;
constexpr int32_t voronoi_modes = 6;

// Display switches, toggled by keys and not saved.
extern int32_t plot_type;         // a PlotType
extern int32_t plot_voronoi;      // 1: the landscape of cells replaces the plots of plot_type
extern int32_t voronoi_mode;      // 0 to 5, how it looks; a change must drop "voronoilist"
extern int32_t plot_light;        // the user carries a light, in the gantry and among the balls
extern int32_t plot_grid;         // the grid around the current node is drawn
extern int32_t plot_smooth_lines; // lines are antialiased at a width of 1.5 instead of blended
extern bool plot_roamers;         // the lines show the trails of Roamers; a setting, without a key

// Likewise, by keys that act while they are held.
extern int32_t plot_fixed;     // the fixed plot replaces the line plot
extern int32_t plot_connected; // what can be reached on the user's level is shown in blue
