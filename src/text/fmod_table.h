#pragma once

#include <array>
#include <cstdint>

// The glyph table of the font "fmod", for font_generate: a record for each of the character codes 0
// to 127.
extern const std::array<uint8_t, 952> fmod_table;

// Its font file, drawn with the font's own measures. The caller frees it with free.
uint8_t *fmod_generate(uint32_t *out_size);
