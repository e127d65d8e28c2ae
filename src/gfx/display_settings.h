#pragma once

#include <cstdint>

#include "support/settings.h"

// The display settings of the user, as numbers.

// Sets the resolution request and the fullscreen offsets (see gfx/screen.h), the stereo mode and
// the swap flag, and adds the defaults of missing settings.
void Display_settings_apply(Settings *settings, int32_t *stereo_mode, int32_t *stereo_swap);

// Sets the resolution request and the offsets alone. "auto", "display N", "span", "span N,M..." and
// "XxY" give the coded pairs of gfx/display.h. A number that can't be read leaves the old
// value.
void Resolution_parse(Settings *settings);
