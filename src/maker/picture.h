#pragma once

#include "maker/options.h"
#include "world/world.h"

// Draws the World as the options say and saves one picture, or as many as a turntable has. Needs no
// display. False, after one sentence, if that fails.
bool picture_draw(const Options &options, World *world);
