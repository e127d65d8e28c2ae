#pragma once

#include <cstdint>

// Each gantry texture is a square of this many pixels, and one repeat of the plate's lattice.
constexpr int32_t gantry_texture_size = 512;

// Renders a texture of the perforated plate, with all its mip levels, and leaves it bound: with
// `tn` 0 its colour, whose alpha is 0 in the holes, with 1 its normals as (n + 1) / 2. The card
// does it out of sight; one that can't draws over the window, clears it, and gets no holes if the
// window has no alpha, or an unfinished texture if it is smaller. The caller deletes it.
uint32_t gantry_texture(int32_t tn);
