#include "text/atlas.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "fonts.h"
#include "text/palette.h"

namespace {

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

// A font of which only '0' has a glyph, 20 by 4, and a level in which it is faint.
TEST(Atlas, ASmallTextureHoldsItsGlyphAndFaintDigitsAreLiftedWhole) {
  std::array<GlyphRecord, 49> records = {};
  records['0'] = {20, 4, nullptr};
  Font font = {};
  atlas_layout(&font, records.data(), 49, 2048);
  EXPECT_EQ(std::pair(font.tex_width, font.tex_height), std::pair(128U, 4U)); // 48 gaps before it
  std::vector<uint8_t> pixels(64 * 2 * 4, 4), expected = pixels;
  for (const size_t row : {0U, 64U})
    std::fill_n(expected.begin() + static_cast<int>(row + font.glyph_x['0'] / 2) * 4, 10 * 4, 255);
  atlas_sharpen(&font, 1, 64, 2, pixels.data());
  EXPECT_EQ(pixels, expected);
}

// Places of the glyphs, and each level down to one pixel, in which only digits and the codes from
// 256 are sharpened. Pinned when they had been compared with the rules byte by byte.
TEST(Atlas, PlacesAndLevelsOfBothFontsAreThose) {
  const Fonts built = fonts_for_test();
  const struct {
    const Font *font;
    int32_t width, height;
    uint64_t places;
    std::vector<uint64_t> levels;
  } expected[] = {
      {built.normal,
       2048,
       32,
       12975390343024700135U,
       {7641997746850137206U, 2092876538525874989U, 7696465447599393980U, 4030998807604920201U,
        352094723412524320U, 4082288484021527319U, 12588250754086472344U, 18336885762894444339U,
        5634713720131858006U, 15392422010972849015U, 3823418095229793582U, 16242675108766396935U}},
      {built.fmod,
       2048,
       512,
       16929770048332381270U,
       {4428624027597224020U, 2382049173698148379U, 10733252464186813160U, 4805803915454980235U,
        12811391550524660316U, 1573491575696720914U, 933917275969399926U, 5405457697695052874U,
        9856179413194329820U, 4881234588614492526U, 2187297058483653769U, 14797454927070787275U}}};
  for (const auto &[font, width, height, places, levels] : expected) {
    std::vector<uint32_t> glyphs;
    for (uint32_t code = 0; code < font_codes; code++)
      glyphs.insert(glyphs.end(),
                    {font->glyph_x[code], font->glyph_y[code], font->glyph_width[code]});
    EXPECT_EQ(digest(glyphs.data(), glyphs.size() * sizeof(uint32_t)), places) << font->name;
    glBindTexture(GL_TEXTURE_2D, font->texture);
    for (int32_t level = 0; level < static_cast<int32_t>(levels.size()); level++) {
      SCOPED_TRACE(testing::Message() << font->name << " level " << level);
      int32_t format[2] = {}, size[2] = {};
      glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_INTERNAL_FORMAT, &format[0]);
      glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_INTERNAL_FORMAT, &format[1]);
      glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_WIDTH, &size[0]);
      glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_HEIGHT, &size[1]);
      EXPECT_EQ(format[0], format[1]) << "or the texture would not be complete";
      ASSERT_EQ(size[0], std::max(width >> level, 1));
      ASSERT_EQ(size[1], std::max(height >> level, 1));
      std::vector<uint8_t> pixels(static_cast<size_t>(size[0] * size[1] * 4));
      glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
      EXPECT_EQ(digest(pixels.data(), pixels.size()), levels[static_cast<size_t>(level)]);
    }
  }
}

} // namespace
