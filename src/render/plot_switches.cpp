#include "render/plot_switches.h"

int32_t plot_type = 0;
int32_t plot_voronoi = 0;
int32_t voronoi_mode = 5;
int32_t plot_light = 0;
int32_t plot_grid = 0;
int32_t plot_smooth_lines = 1;
bool plot_roamers = false;
int32_t plot_fixed = 0;
int32_t plot_connected = 0;
