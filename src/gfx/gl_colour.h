#pragma once

#include <cstdint>

#include "gfx/gl.h"
#include "support/colour.h"

// Sets the current GL colour to 0xRRGGBB, opaque.
inline void gl_colour(uint32_t colour) {
  glColor3ub(colour_red(colour), colour_green(colour), colour_blue(colour));
}
