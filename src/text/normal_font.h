#pragma once

#include <array>
#include <cstdint>

constexpr uint32_t normal_font_size = 14555;

// The small proportional font "normal": 512 glyph records one after the other, each a width, a
// height, and width * height pixels, top row first. A pixel is 255, transparent, or an index into
// the font colours. Glyphs hang from the top of a cell of 13 rows, whose row 9 stands on the
// baseline, and leave the gap of one pixel behind them to the drawing. normal_font.art shows them.
extern const std::array<uint8_t, normal_font_size> normal_font;
