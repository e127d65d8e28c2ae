#pragma once

#include <cstdint>

#include "support/settings.h"

// What the user's settings say of the display, turned into numbers.

// Fills the resolution request and the fullscreen offsets of the window (see gfx/window.h) and the
// stereo mode and swap flag; adds the defaults of settings that are missing.
void Display_settings_apply(Settings *settings, int32_t *stereo_mode, int32_t *stereo_swap);

// The resolution and the offsets alone. "auto", "display N", "span", "span N,M..." and "XxY" give
// the coded pairs of gfx/display.h; of a size, numbers that can't be read leave what was there.
void Resolution_parse(Settings *settings);
