#include "text/atlas.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
#include "gfx/gl.h"
#include "text/fmod_table.h"
#include "text/palette.h"

namespace {

// A hash of bytes (FNV-1a), for pinned results.
uint64_t digest(const void *bytes, size_t size) {
  uint64_t hash = 0xCBF29CE484222325U;
  for (size_t i = 0; i < size; i++)
    hash = (hash ^ static_cast<const uint8_t *>(bytes)[i]) * 0x100000001B3U;
  return hash;
}

// Pinned after a byte-by-byte comparison with the defining rules. Level 0 covers the glyph
// positions.
TEST(Atlas, TextureHasSharpenedLevelsAndSmoothFilters) {
  constexpr uint64_t levels[] = {
      7641997746850137206U, 2092876538525874989U,  7696465447599393980U,  4030998807604920201U,
      352094723412524320U,  4082288484021527319U,  12588250754086472344U, 18336885762894444339U,
      5634713720131858006U, 15392422010972849015U, 3823418095229793582U,  16242675108766396935U};
  glBindTexture(GL_TEXTURE_2D, fonts_for_test().normal->texture);
  for (int32_t level = 0; level < 12; level++) {
    std::vector<uint8_t> pixels((2048U >> level) * std::max(32U >> level, 1U) * 4);
    glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    EXPECT_EQ(digest(pixels.data(), pixels.size()), levels[level]) << level;
  }
  int32_t filters[2];
  glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &filters[0]);
  glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, &filters[1]);
  EXPECT_EQ(std::pair(filters[0], filters[1]), std::pair(GL_LINEAR_MIPMAP_LINEAR, GL_LINEAR));
}

// After changing a letter, look at it before pinning the digests again.
TEST(Atlas, StrokeFontIsTheSameOnEveryMachine) {
  uint32_t size = 0;
  uint8_t *bytes = fmod_generate(&size);
  EXPECT_EQ(digest(bytes, size), 12749455074316598069U);
  std::free(bytes);
}

TEST(Atlas, PaletteHasPrimariesGreysAndACube) {
  float components[3][palette_size];
  palette_build(components[0], components[1], components[2]);
  EXPECT_EQ(digest(components, sizeof components), 393212206806883927U);
}

} // namespace
