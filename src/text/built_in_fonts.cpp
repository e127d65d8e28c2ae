#include "text/built_in_fonts.h"

#include <cstdlib>

#include "text/fmod_table.h"
#include "text/font.h"
#include "text/normal_font.h"

void font_build_normal() {
  font_build(normal_font.data(), normal_font_size, "normal");
}

std::vector<uint8_t> font_build_fmod() {
  uint32_t size = 0;
  uint8_t *records = fmod_generate(&size);
  font_build(records, size, "fmod");
  std::vector<uint8_t> bytes(records, records + size);
  std::free(records);
  return bytes;
}
