#pragma once

#include <cstdint>
#include <vector>

#include "support/list.h"
#include "text/font_record.h"

// The registry of fonts and styles. One of them is current, and all text is drawn with it.

// Rows are Font *. Initialised when the first font is registered; without rows and data before.
extern GrowList fonts;

extern Font *current_font; // null until a font is registered
extern FontStyle current_style;

// Measures of the current font with its scales: whole pixels, at most 255.
extern uint8_t text_gap;
extern uint8_t text_height;
extern uint8_t text_max_width;

// The style of an entry.
FontStyle font_style_of(const Font *font);

// Builds a font from glyph records, uploads it and registers it; makes it current if none is.
// Ignores a truncated record and all that follow. A texture that would be too tall is a fatal
// report. If two fonts have one name, the earlier one is found by it.
Font *font_build(const uint8_t *records, uint32_t size, const char *name);

// Reads a font file, but no more than the maximum size of a font. False, with errno, if it can't be
// opened or read to its end.
bool font_file_read(const char *path, std::vector<uint8_t> *bytes);

// Builds a font from the bytes of a file. `path` names the file in reports. Bytes without a
// complete record are a fatal report.
void font_build_file(const std::vector<uint8_t> &bytes, const char *path, const char *name);

// Reads a file and builds its font. A file that can't be read or holds no complete record is a
// fatal report.
void loadfont(const char *path, const char *name);

// Registers a copy of a font, which shares its texture.
Font *font_copy(const Font *source);

// Makes a font current; null is ignored.
void font_select(Font *font);

// Removes and frees an entry, and the texture with its last user. If the font was current, a random
// one of the rest becomes current.
void font_delete(Font *font);

// Registers a font of one blank pixel, for text that is requested before there is a font. Deletes
// fonts of that name first.
Font *font_make_blank(const char *name);
