#pragma once

// The colours that pixels of fonts index: 16 bright and dark primaries, 24 greys from black to
// white (16 to 39), and a cube of six levels per component.

constexpr int palette_size = 256;

// Fills three arrays of 256 components, from 0 to 1.
void palette_build(float *red, float *green, float *blue);
