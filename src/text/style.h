#pragma once

#include "text/font.h"

// Styles by name: "fmod:bold:width=2" is a font's name and attributes, each behind a colon.
//
//   normal                   back to the defaults
//   scale=, size=            both scales: times a number or a percentage ("50%"), or the height of
//                            the font's cell in pixels ("26px")
//   width=, height=          the same for one scale
//   big, small               both scales times 1.5 or 2/3
//   boldness=                adds a number, a percentage, or pixels of the widest glyph
//   demibold, bold, black    bolder by 0.03, 0.05 and 0.08; the last two also wider
//   skew=, angle=            adds a number, a percentage or pixels of the cell; becomes an angle
//                            in degrees with a degree sign (byte 0xB0)
//   italic                   skewed by 0.4
//
// Names and keys are compared without regard to case. An unknown key, a key that misses its value
// and a value that gives a field no finite number are skipped.

// Reads a style. A font that isn't known, or not named, is that of the current font, else that of
// a random one, else a blank one.
void font_parse_style(FontStyle *out, const char *text);

// The entry that comes within about a pixel of these measures, or a new one.
Font *font_find_style(Font *base, float width, float height, float skew, float boldness);

// Makes the entry of a style current.
void font_apply_style(FontStyle style);

// The same for a style in words, or for the font of exactly that name if it is current.
void font_apply(const char *text);
