#pragma once

#include "world/world.h"

// Draws the whole tree with the plot that the switches choose, and the overlays on top, with the
// current View: once for each depth slab and eye. Unless something changed or one of the held
// switches is on, no nodes are visited.
void plot_world(const World *world);
