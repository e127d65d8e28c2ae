#pragma once

#include <cstdint>

// Draws the font "fmod" from its table of strokes and returns its font file of *out_size bytes. The
// caller frees it with free.
uint8_t *fmod_generate(uint32_t *out_size);
