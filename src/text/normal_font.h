#pragma once

#include <array>
#include <cstdint>

constexpr uint32_t normal_font_size = 14555;

// The small proportional font "normal": a font file of 512 records (see text/font_file.h). Glyphs
// start at the top of a cell of 13 rows; row 9 is the last above the baseline. The gap of one pixel
// after a glyph is left to the layout. The glyphs are drawn in normal_font.art.
extern const std::array<uint8_t, normal_font_size> normal_font;
