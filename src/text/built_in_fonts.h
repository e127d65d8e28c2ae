#pragma once

#include <cstdint>
#include <vector>

// The two fonts that are part of the program. Both functions need an open window.

// Builds the font "normal", the small one.
void font_build_normal();

// Draws the font "fmod" from its table of strokes, builds it and returns its font file.
std::vector<uint8_t> font_build_fmod();
