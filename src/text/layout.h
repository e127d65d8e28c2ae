#pragma once

#include <cstdint>

// Where the glyphs of a text stand: lines, wrapping, letter gaps and commands. Texts end with a NUL
// and may hold the forms of text/text_form.h, whole; all lengths are pixels of the current font.

// The gap between letters, as a part of text_gap.
extern float text_letter_spacing;

// One glyph: its place, and its part of the font's texture, from 0 to 1.
struct TextQuad {
  float left, top, right, bottom;
  float tex_left, tex_top, tex_right, tex_bottom;
};

// Where the glyphs go to.
struct TextOutput {
  void (*quad)(const TextQuad *quad);
  void (*pause)(); // before the style changes inside a text
  void (*resume)();
};

// Lays a text out with its top left corner at (x, y), y downward, and returns the pen's y after it.
// Words that would pass wrap_x go to the next line, and words longer than a line are broken where
// the pen has passed it; 0 means no wrapping. A line that would begin below bottom_y ends the text;
// 0 means no limit. A null text gives the words "NULL?". A code beyond the font's is laid out as
// code 0. Without a font nothing is.
float text_layout(const TextOutput *output, float x, float y, float wrap_x, float bottom_y,
                  const char *text);

// Width up to the first line end of a text, which is not null. Glyphs and gaps are rounded each for
// itself, so that it can differ from the drawn width by a pixel a letter; wide codes and commands
// count nothing.
int32_t text_width(const char *text);
