#pragma once

// The colours that the pixels of fonts index: 16 of bright and dark primaries, 24 greys from black
// to white (16 to 39), and a cube of six levels a component.

constexpr int palette_size = 256;

// Fills three arrays of 256 components, from 0 to 1.
void palette_build(float *red, float *green, float *blue);
