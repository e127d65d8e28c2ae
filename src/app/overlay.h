#pragma once

#include <cstdint>

#include "world/world.h"

// How many states the overlay has: prompt, help, statistics, nothing.
constexpr int32_t overlay_states = 4;

// Draws the texts over the finished frame; `dt` is the frame time in seconds. Needs a font.
void overlay_draw(const World *world, int32_t helpstate, double dt);
