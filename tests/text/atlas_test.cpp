#include "text/atlas.h"

#include <algorithm>
#include <array>
#include <cmath>
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
    const uint32_t whole = size == 10 ? 3 : size >= 6 ? 2 : size >= 4 ? 1 : 0;
    EXPECT_EQ(glyph_records(part.data(), size, records.data()), whole) << size << " bytes";
  }
}

TEST(Atlas, ThePaletteFollowsItsRules) {
  std::array<float, palette_size> red, green, blue;
  palette_build(red.data(), green.data(), blue.data());
  const struct {
    size_t index;
    float red, green, blue;
  } colours[] = {{1, 0, 0, 0.5F},   {4, 0.5F, 0, 0},       {8, 0.25F, 0.25F, 0.25F},
                 {14, 1, 1, 0},     {16, 0, 0, 0},         {39, 1, 1, 1},
                 {40 + 5, 1, 0, 0}, {40 + 6 * 5, 0, 1, 0}, {255, 1, 1, 1}};
  for (const auto &c : colours) {
    EXPECT_FLOAT_EQ(red[c.index], c.red) << c.index;
    EXPECT_FLOAT_EQ(green[c.index], c.green) << c.index;
    EXPECT_FLOAT_EQ(blue[c.index], c.blue) << c.index;
  }
}

// Against the rule told byte by byte, on random levels.
TEST(Atlas, DigitsAndHighCodesAreLiftedToTheirPeakInSmallLevels) {
  rand_seed(5);
  const Glyphs glyphs = random_glyphs(400, 20);
  Font font = {};
  atlas_layout(&font, glyphs.records.data(), glyphs.count, 1024);
  for (uint32_t level = 1; level < 9; level++) {
    const uint32_t width = std::max(font.tex_width >> level, 1U);
    const uint32_t height = std::max(font.tex_height >> level, 1U);
    std::vector<uint8_t> pixels(size_t{width} * height * 4);
    for (uint8_t &byte : pixels)
      byte = static_cast<uint8_t>(rand_int(4) == 0 ? 0 : rand_int(200));
    std::vector<uint8_t> expected = pixels;
    for (uint32_t code = 0; code < font_codes; code++) {
      if (!((code >= 48 && code <= 57) || (code >= 256 && code <= 383))) continue;
      std::vector<size_t> cell;
      for (uint32_t y = font.glyph_y[code] >> level;
           y < (font.glyph_y[code] + font.height) >> level; y++)
        for (uint32_t x = 0; x < 4 * (font.glyph_width[code] >> level); x++)
          cell.push_back((y * width + (font.glyph_x[code] >> level)) * 4 + x);
      double peak = 0.001;
      for (const size_t at : cell)
        peak = std::max(peak, static_cast<double>(expected[at]));
      for (const size_t at : cell) {
        const int i = static_cast<int>(expected[at] * 255.4 / peak);
        expected[at] = static_cast<uint8_t>(255.9 * std::pow(i / 255.9, 0.4));
      }
    }
    atlas_sharpen(&font, level, width, height, pixels.data());
    EXPECT_EQ(pixels, expected) << "level " << level;
  }
}

TEST(Atlas, AllLevelsOfTheTextureAreThereAndSharpened) {
  const Font *fmod = fonts_for_test().fmod;
  glBindTexture(GL_TEXTURE_2D, fmod->texture);
  int32_t format = 0;
  glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_INTERNAL_FORMAT, &format);
  for (int32_t level = 1; level <= 11; level++) {
    int32_t size[3] = {};
    glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_WIDTH, &size[0]);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_HEIGHT, &size[1]);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_INTERNAL_FORMAT, &size[2]);
    EXPECT_EQ(size[0], 2048 >> level);
    EXPECT_EQ(size[1], std::max(512 >> level, 1));
    EXPECT_EQ(size[2], format) << "or the texture would not be complete";
    if (level > 5) continue; // a digit has no whole column there
    const auto row = static_cast<uint32_t>(size[0]);
    std::vector<uint32_t> pixels(row * static_cast<uint32_t>(size[1]));
    glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    const auto brightest = [&](uint32_t code) { // its red
      uint32_t peak = 0;
      for (uint32_t y = fmod->glyph_y[code] >> level; y < (fmod->glyph_y[code] + 100) >> level; y++)
        for (uint32_t x = 0; x < fmod->glyph_width[code] >> level; x++)
          peak = std::max(peak, pixels[y * row + (fmod->glyph_x[code] >> level) + x] & 255);
      return peak;
    };
    EXPECT_GT(brightest('7'), 170U) << level;
    EXPECT_TRUE(level < 5 || brightest('T') < 150) << "letters fade";
  }
}

} // namespace
