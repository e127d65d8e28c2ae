#pragma once

#include <cstdint>
#include <vector>

#include "text/font.h"

// How a font's glyphs stand in its texture.

struct GlyphRecord {
  uint32_t width, height; // pixels
  const uint8_t *pixels;  // row by row from the top, not owned
};

// Takes a font file's bytes apart; `out` has room for font_codes. Returns the number of records
// that are whole; the end and the first one that isn't end the reading.
uint32_t glyph_records(const uint8_t *bytes, uint32_t size, GlyphRecord *out);

// Sets height, glyph_x, glyph_y and glyph_width: glyphs in rows of at most `limit` pixels, with
// gaps for the smaller mip levels. tex_width and tex_height become powers of two, whatever the
// height is.
void atlas_layout(Font *font, const GlyphRecord *records, uint32_t count, uint32_t limit);

// The texture's picture: RGBA, row by row from the top.
std::vector<uint8_t> atlas_image(const Font *font, const GlyphRecord *records, uint32_t count);

// Brightens digits and the codes from 256 to 383 in a mip level, 1 or above, of that size: averages
// of thin grey strokes would fade.
void atlas_sharpen(const Font *font, uint32_t level, uint32_t width, uint32_t height,
                   uint8_t *pixels);
