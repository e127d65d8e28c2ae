#pragma once

#include <cstdint>

// Anaglyphs with a matrix for the colours of each eye instead of a mask, which keeps more of the
// colours and lets less of the other eye through. The matrices minimise the perceived error. From
// E. Dubois, "Conversion of a Stereo Pair to Anaglyph with the Least-Squares Projection Method",
// 2009.

// Whether matrices replace the masks where there are any; a setting.
extern bool anaglyph_dubois;

// Makes a program current that mixes both eyes for glasses of these colours, 0xRRGGBB. The texture
// of the first eye belongs to unit 0, with the texture coordinates of both. False, with nothing
// changed, if the setting is off, the driver has no shaders, or no matrices are published for these
// glasses.
bool anaglyph_begin(uint32_t first_colour, uint32_t second_colour, uint32_t second_texture);

// Back to the fixed pipeline, after anaglyph_begin returned true.
void anaglyph_end();
