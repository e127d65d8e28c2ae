#include "text/atlas.h"

#include <array>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "fonts.h"
#include "support/random.h"
#include "text/palette.h"

namespace {

struct Glyphs {
  std::vector<uint8_t> bytes;
  std::array<GlyphRecord, font_codes> records;
  uint32_t count;
};

// Records of random sizes, empty ones too, with their own number in each pixel.
Glyphs random_glyphs(int32_t count, int32_t greatest) {
  Glyphs glyphs = {};
  for (int32_t i = 0; i < count; i++) {
    const int32_t width = rand_int(greatest + 1);
    const int32_t height = rand_int(greatest + 1);
    glyphs.bytes.push_back(static_cast<uint8_t>(width));
    glyphs.bytes.push_back(static_cast<uint8_t>(height));
    glyphs.bytes.insert(glyphs.bytes.end(), static_cast<size_t>(width * height),
                        static_cast<uint8_t>(1 + i % 250));
  }
  glyphs.count = glyph_records(glyphs.bytes.data(), static_cast<uint32_t>(glyphs.bytes.size()),
                               glyphs.records.data());
  return glyphs;
}

TEST(Atlas, GlyphsStandApartInsideTheTextureWithTheirOwnPixels) {
  rand_seed(7);
  std::array<float, palette_size> red, green, blue;
  palette_build(red.data(), green.data(), blue.data());
  for (const int32_t count : {0, 1, 40, 300, 512})
    for (const int32_t greatest : {1, 13, 60}) {
      const Glyphs glyphs = random_glyphs(count, greatest);
      ASSERT_EQ(glyphs.count, static_cast<uint32_t>(count));
      Font font = {};
      atlas_layout(&font, glyphs.records.data(), glyphs.count, 2048);
      const std::vector<uint8_t> image = atlas_image(&font, glyphs.records.data(), glyphs.count);
      ASSERT_EQ(image.size(), size_t{font.tex_width} * font.tex_height * 4);
      ASSERT_LE(font.tex_width, 2048U);
      // Each cell is claimed whole, with the gap to its right and below.
      std::vector<int> owner(image.size() / 4, -1);
      for (uint32_t code = 0; code < font_codes; code++) {
        if (code >= glyphs.count) {
          EXPECT_EQ(font.glyph_width[code], 0U);
          continue;
        }
        ASSERT_LE(font.glyph_x[code] + font.glyph_width[code], font.tex_width);
        ASSERT_LE(font.glyph_y[code] + font.height, font.tex_height);
        const GlyphRecord record = glyphs.records[code];
        ASSERT_EQ(font.glyph_width[code], record.width);
        for (uint32_t y = 0; y < font.height; y++)
          for (uint32_t x = 0; x < record.width; x++) {
            const size_t at =
                size_t{font.glyph_y[code] + y} * font.tex_width + font.glyph_x[code] + x;
            ASSERT_EQ(owner[at], -1) << "codes " << owner[at] << " and " << code;
            owner[at] = static_cast<int>(code);
            const uint8_t index = static_cast<uint8_t>(1 + code % 250);
            ASSERT_EQ(image[at * 4 + 3], y < record.height ? 255 : 0);
            if (y < record.height) {
              ASSERT_EQ(image[at * 4], static_cast<int>(red[index] * 255.9F));
            }
          }
      }
    }
}

TEST(Atlas, ReadingEndsAtTheFirstRecordThatIsNotWhole) {
  const std::vector<uint8_t> bytes = {2, 1, 20, 21, 0, 9, 1, 2, 30, 31};
  for (uint32_t size = 0; size <= bytes.size(); size++) {
    const std::vector<uint8_t> part(bytes.begin(), bytes.begin() + size);
    std::array<GlyphRecord, font_codes> records;
    EXPECT_EQ(glyph_records(part.data(), size, records.data()), size == 10  ? 3U
                                                                : size >= 6 ? 2U
                                                                : size >= 4 ? 1U
                                                                            : 0U)
        << size << " bytes";
  }
}

TEST(Atlas, ThePaletteFollowsItsRules) {
  std::array<float, palette_size> red, green, blue;
  palette_build(red.data(), green.data(), blue.data());
  const auto colour = [&](size_t i) { return std::array<float, 3>{red[i], green[i], blue[i]}; };
  using Rgb = std::array<float, 3>;
  EXPECT_EQ(colour(1), (Rgb{0, 0, 0.5F}));
  EXPECT_EQ(colour(4), (Rgb{0.5F, 0, 0}));
  EXPECT_EQ(colour(8), (Rgb{0.25F, 0.25F, 0.25F}));
  EXPECT_EQ(colour(14), (Rgb{1, 1, 0}));
  EXPECT_EQ(colour(16), (Rgb{0, 0, 0}));
  EXPECT_NEAR(colour(39)[1], 1.0F, 1e-6F);
  EXPECT_EQ(colour(40 + 5), (Rgb{1, 0, 0}));
  EXPECT_EQ(colour(40 + 6 * 5), (Rgb{0, 1, 0}));
  EXPECT_EQ(colour(255), (Rgb{1, 1, 5 * 0.2F}));
}

// In each mip level the brightest byte of a digit is lifted to the top, and letters are left alone.
TEST(Atlas, SmallLevelsOfDigitsAreBright) {
  const Fonts built = fonts_for_test();
  glBindTexture(GL_TEXTURE_2D, built.fmod->texture);
  int32_t base = 0;
  glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_INTERNAL_FORMAT, &base);
  int32_t levels = 0;
  for (int32_t level = 1;; level++, levels++) {
    int32_t width = 0;
    int32_t height = 0;
    int32_t format = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_HEIGHT, &height);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_INTERNAL_FORMAT, &format);
    EXPECT_EQ(format, base) << "level " << level;
    std::vector<uint8_t> pixels(static_cast<size_t>(width * height) * 4);
    glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    const auto mean = [&](uint32_t code) {
      const uint32_t right =
          (built.fmod->glyph_x[code] >> level) + (built.fmod->glyph_width[code] >> level);
      double sum = 0;
      uint32_t texels = 0;
      for (uint32_t y = built.fmod->glyph_y[code] >> level;
           y < (built.fmod->glyph_y[code] + 100) >> level; y++)
        for (uint32_t x = built.fmod->glyph_x[code] >> level; x < right; x++, texels++)
          sum += pixels[(y * static_cast<uint32_t>(width) + x) * 4];
      return texels > 0 ? sum / texels : 0;
    };
    // O and 0 are the same strokes but for a dot, so plain averages would be nearly the same.
    if (level == 4) {
      EXPECT_GT(mean('0'), 1.6 * mean('O'));
    }
    if (width == 1 && height == 1) break;
  }
  EXPECT_EQ(levels + 1, 11) << "2048 by 1024";
}

} // namespace
