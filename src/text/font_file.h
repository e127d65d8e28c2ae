#pragma once

#include <cstdint>

// The font "fmod" is carried as a few strokes to a glyph: each glyph is a small grid of codes, and
// each code names a tile, whose strokes are drawn by formula. Here they are drawn, and put together
// to the glyph records of a font file: for each character code from 0 up a width and a height in
// pixels, a byte each, and the pixels, row by row from the top; 255 is transparent and any other
// value an index into the palette.

constexpr uint8_t glyph_transparent = 255;
constexpr uint32_t glyph_header = 2; // bytes before a record's pixels
constexpr uint32_t font_codes = 512; // character codes of a font, and records of a file at most

// Whether the point (x, y) of a tile's unit square, y downward, lies in ink. Bit 2 of the code
// exchanges the axes, bits 0 and 1 mirror x and y, and the bits from 3 up are the shape; a shape
// beyond 7 gives 2. a and b are half the thickness of strokes across x and y, c and d shift the
// centre of curves, e is the size of a dot as a multiple of a.
int32_t font_tile_shape(uint8_t code, float x, float y, float a, float b, float c, float d,
                        float e);

// The font file of a glyph table, whose records are a width and a height in tiles and their codes,
// row by row. A tile is `tile_width` by `tile_height` pixels (whole numbers), each of samples by
// samples points; any touch of ink gives a pixel from 16 to 39 by its coverage. The strokes are
// those of font_tile_shape; `flag` has no effect. A record cut off by the end of the table is left
// out. The caller frees the result with free.
uint8_t *font_generate(const uint8_t *table, uint32_t table_size, float tile_width,
                       float tile_height, float a, float b, float c, float d, float e,
                       int32_t samples, uint8_t flag, uint32_t *out_size);
