#pragma once

#include <cstdint>

// Width and height of each gantry texture in pixels. It is one repeat of the plate's lattice.
constexpr int32_t gantry_texture_size = 512;

// Renders a texture of the perforated plate, with mip levels, and leaves it bound: its colour, with
// alpha 0 in the holes, if `tn` is 0, or its normals as (n + 1) / 2 if `tn` is 1. Uses a
// framebuffer object. Without one it draws over the window and clears it; then there are no holes
// in a window without alpha, and the texture is incomplete in a smaller one. The caller deletes the
// texture.
uint32_t gantry_texture(int32_t tn);
