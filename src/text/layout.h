#pragma once

#include <cstdint>

// The layout of a text: lines, wrapping, letter gaps and commands. Texts end with a NUL and may
// contain complete control sequences of text/control_sequence.h. Lengths are pixels.

// A glyph: its rectangle, and its part of the font's texture, from 0 to 1.
struct TextQuad {
  float left, top, right, bottom;
  float tex_left, tex_top, tex_right, tex_bottom;
};

// Receives the glyphs.
struct TextOutput {
  void (*quad)(const TextQuad *quad);
  void (*pause)(); // before the style changes inside a text
  void (*resume)();
};

// Lays out a text with its top left corner at (x, y), y downward, and returns the pen's y after it.
// Words that would extend beyond wrap_x go to the next line. Words longer than a line are broken
// after the glyph that extends beyond it. 0 means no wrapping. A line that would begin below
// bottom_y ends the text; 0 means no limit. A null text counts as "NULL?", and a code that the font
// does not have as code 0. Without a font there is no output.
float text_layout(const TextOutput *output, float x, float y, float wrap_x, float bottom_y,
                  const char *text);

// Width of a text, which is not null, up to its first line end. Glyphs and gaps are rounded
// separately, so the drawn width can differ by a pixel per letter. Wide codes and commands count as
// 0.
int32_t text_width(const char *text);
