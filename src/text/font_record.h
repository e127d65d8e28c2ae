#pragma once

#include <cstdint>

#include "text/font_file.h"

// A font: glyph positions in a texture, with scales. A base font owns its glyphs; a style is an
// entry of its own that shares the texture of its base.
struct Font {
  uint32_t texture;                 // GL name
  uint32_t glyph_x[font_codes];     // left edge in the texture, pixels
  uint32_t glyph_y[font_codes];     // top row there
  uint32_t glyph_width[font_codes]; // pixels; 0 for a code without a glyph
  uint32_t tex_width, tex_height;   // pixels
  uint8_t max_width;                // the largest glyph_width
  uint8_t height;                   // of the tallest glyph, and of every glyph's cell
  uint8_t space_measure;            // width of "C" plus 1; sets the gap between letters
  char *name;                       // owned
  Font *base;                       // the font that owns the glyphs; itself for a base font
  float width_scale, height_scale;
  float skew, boldness;
  int32_t glyph_count; // 512 for a base font, 0 for a style
  int32_t reserved;    // 0
};

// A requested style. Styles are equal if all their fields are.
struct FontStyle {
  Font *base;
  float width_scale, height_scale;
  float skew, boldness;
  int32_t glyph_count;
  int32_t reserved;
  bool operator==(const FontStyle &) const = default;
};

constexpr FontStyle font_style_default = {nullptr, 1.0F, 1.0F, 0.0F, 0.0F, 0, 0};
