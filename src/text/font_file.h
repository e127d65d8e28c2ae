#pragma once

#include <cstdint>

// Font files, and the drawing of the font "fmod". A font file has a record for each character code
// from 0 up: width and height in pixels, a byte each, then the pixels, row by row from the top. A
// pixel is transparent or an index into the palette. The program stores "fmod" as strokes: a glyph
// is a small grid of codes, and a code selects a tile whose strokes are drawn by formula.

constexpr uint8_t glyph_transparent = 255;
constexpr uint32_t glyph_header = 2; // bytes before a record's pixels
constexpr uint32_t font_codes = 512; // character codes of a font, and maximum records of a file

// Draws a glyph table and returns its font file of *out_size bytes, which the caller frees with
// free. A record of the table is a width and a height in tiles, then the codes of the tiles, row by
// row; a truncated record is left out. A tile has `tile_width` by `tile_height` pixels (truncated
// to whole numbers), each of `samples` by `samples` points. A pixel with any coverage is 16 to 39.
// a and b are half the stroke width along x and y, as parts of a tile, c and d shift the centres of
// curves, e is the radius of a dot as a multiple of a. `flag` has no effect.
uint8_t *font_generate(const uint8_t *table, uint32_t table_size, float tile_width,
                       float tile_height, float a, float b, float c, float d, float e,
                       int32_t samples, uint8_t flag, uint32_t *out_size);
