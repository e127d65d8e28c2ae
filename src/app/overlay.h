#pragma once

#include <cstdint>

#include "world/world.h"

// The pages of the overlay: prompt, help, statistics, nothing.
constexpr int32_t overlay_pages = 4;

// Draws a page over the finished frame. `dt` is the frame time in seconds. A font must be selected.
void overlay_draw(const World *world, int32_t helpstate, double dt);
