#pragma once

#include <cstdint>
#include <vector>

#include "support/list.h"
#include "text/font_file.h"

// All fonts, in one registry. A font is a record of glyph positions in one texture; a style is a
// font with scales and the like, and has an entry of its own that shares the texture. One font is
// current, and all text is drawn with it.

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
  int32_t glyph_count; // 512 for a base font, 0 for a style's entry
  int32_t reserved;    // 0
};

// What is asked for; compared byte by byte.
struct FontStyle {
  Font *base;
  float width_scale, height_scale;
  float skew, boldness;
  int32_t glyph_count;
  int32_t reserved;
  bool operator==(const FontStyle &) const = default;
};

constexpr FontStyle font_style_default = {nullptr, 1.0F, 1.0F, 0.0F, 0.0F, 0, 0};

// The registry: rows are Font *. Made on first need; without rows (and data) before.
extern GrowList fonts;
extern void *font_rows; // kept equal to its rows

extern Font *current_font; // null until a font is registered
extern FontStyle current_style;

// Of the current font with its scales, in pixels, whole and at most 255.
extern uint8_t text_gap;
extern uint8_t text_height;
extern uint8_t text_max_width;

// The style of an entry.
FontStyle font_style_of(const Font *font);

// Builds a font from glyph records, uploads it and registers it; it becomes current if none is. A
// record that the end cuts off, and all behind it, count as missing. A picture too tall for a
// texture is a fatal report. Of two fonts with one name the earlier is found.
Font *font_build(const uint8_t *records, uint32_t size, const char *name);

// Reads the bytes of a font file, as many as a font can have. False, with errno, if not all can be
// read.
bool font_file_read(const char *path, std::vector<uint8_t> *bytes);

// Builds a font from the bytes of a file, of which `path` is the name for reports. Bytes without a
// whole record are a fatal report.
void font_build_file(const std::vector<uint8_t> &bytes, const char *path, const char *name);

// The same from a file. One that can't be read or holds no whole record is a fatal report.
void loadfont(const char *path, const char *name);

// A new registered entry with all that the source has, its texture too.
Font *font_copy(const Font *source);

// Makes a font current; null is ignored.
void font_select(Font *font);

// Removes an entry and, with the last one that uses it, the texture. If the font was current, one
// of the rest becomes current, by chance.
void font_delete(Font *font);

// Registers a font of one blank pixel, for text that is asked for before there is a font. Fonts of
// that name are deleted before.
Font *font_make_blank(const char *name);
