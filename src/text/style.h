#pragma once

#include "text/font.h"

// Styles by name: "fmod:bold:width=2" is the name of a font and attributes, each after a colon.
//
//   normal                   resets to the defaults
//   scale=, size=            multiplies both scales by a number or percentage ("50%"), or sets the
//                            height of the cell in pixels ("26px")
//   width=, height=          the same for one scale
//   big, small               multiply both scales by 1.5 and 2/3
//   boldness=                adds a number, a percentage, or pixels of the widest glyph
//   demibold, bold, black    add 0.03, 0.05 and 0.08 to the boldness; the last two also widen
//   skew=, angle=            add a number, a percentage or pixels of the cell; set an angle in
//                            degrees if there is a degree sign (byte 0xB0)
//   italic                   adds 0.4 to the skew
//
// Names and keys ignore case. Unknown keys, keys without their value and values that give a field
// no finite number are skipped.

// Parses a style. If the font is unknown or not named, uses the base of the current font, otherwise
// of a random one, otherwise a blank font.
void font_parse_style(FontStyle *out, const char *text);

// Returns the entry within about a pixel of these measures, or a new one.
Font *font_find_style(Font *base, float width, float height, float skew, float boldness);

// Makes the entry of a style current.
void font_apply_style(FontStyle style);

// Parses a style and makes its entry current. Does nothing if the current font has exactly that
// name.
void font_apply(const char *text);
