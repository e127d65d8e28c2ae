#include "text/text.h"

#include <array>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "fonts.h"
#include "gfx/gl.h"
#include "picture.h"
#include "text/atlas.h"
#include "text/layout.h"
#include "text/normal_font.h"
#include "text/style.h"

namespace {

void fill(uint32_t colour) {
  glClearColor(static_cast<float>(colour >> 16) / 255, static_cast<float>(colour >> 8 & 255) / 255,
               static_cast<float>(colour & 255) / 255, 0);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glClearColor(0, 0, 0, 0);
}

// What a component becomes: the glyph's grey times the text's colour covers what is there.
int covered(uint8_t pixel, uint32_t text, uint32_t ground, int shift) {
  const double grey = pixel == glyph_transparent ? 0 : pixel == 15 ? 1 : (pixel - 16) / 23.0;
  const double source = grey * (text >> shift & 255) / 255.0;
  return static_cast<int>(255 * source + (1 - source) * (ground >> shift & 255) + 0.5);
}

TEST(Text, PixelsOfAStringAreThoseOfItsGlyphsOverTheGround) {
  const Fonts built = fonts_for_test();
  constexpr uint32_t ground = 0x603010;
  constexpr uint32_t colour = 0xFFC080;
  constexpr int left = 37;
  constexpr int top = 101;
  fill(ground);
  text_begin();
  text_print(left, top, 0, 0, "Ogre 8@j", colour);
  text_end();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
  EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_TRUE);
  EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_FALSE);
  const Picture picture = picture_take();
  std::array<GlyphRecord, font_codes> records;
  glyph_records(normal_font.data(), normal_font_size, records.data());
  int x = left;
  int inked = 0;
  for (const char c : std::string("Ogre 8@j")) {
    const GlyphRecord &glyph = records[static_cast<size_t>(c)];
    for (uint32_t gy = 0; gy < built.normal->height; gy++)
      for (uint32_t gx = 0; gx < glyph.width; gx++) {
        const uint8_t pixel =
            gy < glyph.height ? glyph.pixels[gy * glyph.width + gx] : glyph_transparent;
        inked += pixel != glyph_transparent;
        const uint32_t seen =
            picture_colour(picture, x + static_cast<int>(gx), top + static_cast<int>(gy));
        for (const int shift : {0, 8, 16})
          ASSERT_NEAR(static_cast<int>(seen >> shift & 255), covered(pixel, colour, ground, shift),
                      2)
              << c << " at " << gx << ", " << gy;
      }
    x += static_cast<int>(glyph.width) + 1;
    EXPECT_EQ(picture_colour(picture, x - 1, top + 5), ground) << "the gap behind " << c;
  }
  EXPECT_GT(inked, 200);
}

// "H" of the font of strokes, seen from above, where a world unit is 20 pixels.
TEST(Text, WorldTextAddsToWhatIsBehindAndHidesBehindWhatIsInFront) {
  fonts_for_test();
  font_apply("fmod");
  fill(0x204060);
  glTranslated(0, 0, -16);
  glColor3f(0.5F, 0.25F, 0);
  text3d_begin();
  text3d_print(-5, 5, 0, "H\nH\tH", 0, -10, 0, 10, 0, 0);
  text3d_end();
  EXPECT_EQ(glIsEnabled(GL_ALPHA_TEST), GL_FALSE);
  const Picture picture = picture_take();
  const auto at = [&](double x, double y) {
    return picture_colour(picture, pixel_x(x), pixel_y(y));
  };
  // The cell is 10 high and the glyph 4 by 8: its stems are in the middle of tiles of 2.
  constexpr uint32_t ink = 0xA08060; // 0x204060 and half of red, a quarter of green
  EXPECT_LE(colour_distance(at(-4, 2), ink), 2) << "the left stem";
  EXPECT_LE(colour_distance(at(-2, 2), ink), 2) << "the right one";
  EXPECT_EQ(at(-3, 4), 0x204060U);
  EXPECT_EQ(at(-3, -3.5), 0x204060U);
  EXPECT_LE(colour_distance(at(-4, -7), ink), 2) << "the second line is ten lower";
  EXPECT_LE(colour_distance(at(-4 + 4.1 + 10, -7), ink), 2) << "a glyph, a pixel's gap and a tab";
  EXPECT_LT(picture_depth(picture, pixel_x(-4), pixel_y(2)), 1.0F);
  EXPECT_EQ(picture_depth(picture, pixel_x(-3), pixel_y(4)), 1.0F) << "blanks leave no depth";
  font_apply("normal");
}

TEST(Text, BlendModesDiffer) {
  fonts_for_test();
  const uint32_t expected[] = {0x0000C0, 0x0000C0 * 0x60 / 255, 0x606000 | 0xD8, 0x0000C0};
  for (int mode = 1; mode <= 4; mode++) {
    text_blend_mode = mode;
    fill(0x606060);
    text_begin();
    text_print(20, 20, 0, 0, "H", 0x0000C0);
    text_end();
    const Picture picture = picture_take();
    // The stem of the H: full coverage.
    EXPECT_LE(colour_distance(picture_colour(picture, 21, 25), expected[mode - 1]), 2) << mode;
  }
  text_blend_mode = 3;
}

} // namespace
