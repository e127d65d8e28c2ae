#pragma once

#include <cstdint>
#include <vector>

#include "text/font_record.h"

// The texture of a font: where its glyphs are, and their pixels.

struct GlyphRecord {
  uint32_t width, height; // pixels
  const uint8_t *pixels;  // row by row from the top, not owned
};

// Splits the bytes of a font file into records; `out` has room for font_codes. Stops at the end or
// at a truncated record, and returns the number of complete ones.
uint32_t glyph_records(const uint8_t *bytes, uint32_t size, GlyphRecord *out);

// Sets height, glyph_x, glyph_y, glyph_width, tex_width and tex_height of the font. Glyphs are in
// rows of at most `limit` pixels, with gaps for the smaller mip levels. The texture's sides are
// powers of two; its height is not limited.
void atlas_layout(Font *font, const GlyphRecord *records, uint32_t count, uint32_t limit);

// The image of the texture: RGBA, row by row from the top.
std::vector<uint8_t> atlas_image(const Font *font, const GlyphRecord *records, uint32_t count);

// Brightens digits and the codes 256 to 383 in mip level `level`, 1 or above, of that size, since
// thin grey strokes fade when averaged.
void atlas_sharpen(const Font *font, uint32_t level, uint32_t width, uint32_t height,
                   uint8_t *pixels);
