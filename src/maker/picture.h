#pragma once

#include "maker/options.h"
#include "world/world.h"

// Whether the files of all pictures may be written. Otherwise reports a sentence.
bool picture_may_write(const Options &options);

// Draws the World as the options say and saves one picture, or as many as a turntable has. Needs no
// display. False, after one sentence, if that fails.
bool picture_draw(const Options &options, World *world);
