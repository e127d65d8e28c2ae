#include "text/atlas.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
#include "gfx/gl.h"
#include "text/normal_font.h"
#include "text/palette.h"

namespace {

TEST(Atlas, ReadingEndsAtTheFirstIncompleteRecord) {
  const std::vector<uint8_t> bytes = {2, 1, 20, 21, 0, 9, 1, 2, 30, 31};
  for (uint32_t size = 0; size <= bytes.size(); size++) {
    const std::vector<uint8_t> part(bytes.begin(), bytes.begin() + size);
    GlyphRecord records[font_codes];
    const uint32_t whole = size == 10 ? 3 : size >= 6 ? 2 : size >= 4 ? 1 : 0;
    EXPECT_EQ(glyph_records(part.data(), size, records), whole) << size << " bytes";
  }
}

// Pinned after a comparison with the rules byte by byte. Level 0 shows the places of the glyphs.
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
  EXPECT_EQ(filters[0], GL_LINEAR_MIPMAP_LINEAR);
  EXPECT_EQ(filters[1], GL_LINEAR);
  EXPECT_EQ(digest(normal_font.data(), normal_font_size), 866810924410931940U)
      << "whoever changes a letter looks at it before the digests are pinned";
}

TEST(Atlas, PaletteHasPrimariesGreysAndACube) {
  float components[3][palette_size];
  palette_build(components[0], components[1], components[2]);
  EXPECT_EQ(digest(components, sizeof components), 393212206806883927U);
}

} // namespace
