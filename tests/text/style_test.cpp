#include "text/style.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "fonts.h"
#include "gfx/gl.h"

namespace {

TEST(Style, StringsGiveTheirFields) {
  const Fonts built = fonts_for_test();
  const float normal_height = built.normal->height;
  const float normal_widest = built.normal->max_width;
  const struct {
    const char *text;
    Font *base;
    float width, height, skew, boldness;
  } cases[] = {
      {"fmod", built.fmod, 1, 1, 0, 0},
      {"FMOD:Bold", built.fmod, 1.1F, 1, 0, 0.05F},
      {":big", built.normal, 1.5F, 1.5F, 0, 0},
      {"", built.normal, 1, 1, 0, 0},
      {"nowhere:small", built.normal, 2.0F / 3, 2.0F / 3, 0, 0},
      {"fmod:scale=50px", built.fmod, 0.5F, 0.5F, 0, 0},
      {"normal:size=200%:width=26px", built.normal, 26 / normal_height, 2, 0, 0},
      {"normal:width=1300%px:skew=13%px\xB0", built.normal, 100, 1, 1, 0},
      {"fmod:width=50%:width=200%", built.fmod, 1, 1, 0, 0},
      {"fmod:width=3:height=25px", built.fmod, 3, 0.25F, 0, 0},
      {"fmod:height=150%:height=2", built.fmod, 1, 3, 0, 0},
      {"normal:boldness=2px:boldness=10%:boldness=1", built.normal, 1, 1, 0,
       2 / normal_widest + 1.1F},
      {"fmod:black:demibold", built.fmod, 1.2F, 1, 0, 0.11F},
      {"fmod:italic:skew=20%:skew=10px:skew=1", built.fmod, 1, 1, 1.7F, 0},
      {"fmod:italic:angle=45\xB0", built.fmod, 1, 1, 1, 0},
      {"fmod:bold:italic:big:normal:italic", built.fmod, 1, 1, 0.4F, 0},
      {"fmod:sparkling::width:scale=nan:width=inf:size=1e300:big=7", built.fmod, 1.5F, 1.5F, 0, 0},
  };
  for (const auto &c : cases) {
    FontStyle style;
    font_parse_style(&style, c.text);
    EXPECT_EQ(style.base, c.base) << c.text;
    EXPECT_NEAR(style.width_scale, c.width, 1e-6F) << c.text;
    EXPECT_NEAR(style.height_scale, c.height, 1e-6F) << c.text;
    EXPECT_NEAR(style.skew, c.skew, 1e-6F) << c.text;
    EXPECT_NEAR(style.boldness, c.boldness, 1e-6F) << c.text;
  }
}

TEST(Style, EntriesAreMadeOnceAndServeWhatIsWithinAPixel) {
  const Fonts built = fonts_for_test();
  const uint32_t before = fonts.count;
  font_apply("fmod:width=1.01");
  EXPECT_EQ(current_font, built.fmod);
  font_apply("fmod:width=2:bold:skew=0.5:height=0.5");
  Font *made = current_font;
  EXPECT_EQ(fonts.count, before + 1);
  EXPECT_STREQ(made->name, "fmod:width=2.2:height=0.5:boldness=0.05:skew=0.5");
  EXPECT_EQ(text_height, 50);
  EXPECT_EQ(text_max_width, 132);
  EXPECT_EQ(text_gap, static_cast<int>(2.2 * 41)) << "C is 40 wide";
  font_apply("normal");
  EXPECT_EQ(current_font, built.normal);
  EXPECT_EQ(text_gap, 9);
  font_apply("fmod:width=220%:skew=0.49:height=50px:boldness=5%");
  EXPECT_EQ(current_font, made);
  font_apply("fmod:italic");
  EXPECT_EQ(fonts.count, before + 2);
  Font *twin = font_copy(built.normal);
  EXPECT_EQ(font_find_style(built.normal, 1, 1, 0, 0), twin) << "of equals the later one";
  font_delete(twin);
  current_font = nullptr;
  FontStyle style;
  font_parse_style(&style, "nowhere");
  EXPECT_TRUE(style.base == built.normal || style.base == built.fmod) << "one by chance";
  // In a small font a ratio counts for less than pixels, in a large one for more.
  EXPECT_EQ(font_find_style(built.normal, 1.05F, 1, 0, 0), built.normal);
  EXPECT_NE(font_find_style(built.normal, 1.15F, 1, 0, 0), built.normal);
  EXPECT_NE(font_find_style(built.fmod, 1.15F, 1, 0, 0), built.fmod);
}

TEST(Style, AnEntryThatGoesLeavesTheOthersWhole) {
  const Fonts built = fonts_for_test();
  Font *wide = font_find_style(built.fmod, 3, 1, 0, 0);
  Font *tall = font_find_style(built.fmod, 1, 3, 0, 0);
  font_select(tall);
  font_delete(built.fmod);
  EXPECT_EQ(glIsTexture(wide->texture), GL_TRUE) << "its styles still use it";
  EXPECT_EQ(wide->base, tall->base);
  EXPECT_TRUE(wide->base == wide || wide->base == tall);
  FontStyle style;
  font_parse_style(&style, ":bold");
  EXPECT_EQ(style.base, tall->base);
  const Font *other = font_find_style(tall->base, 7, 1, 0, 0);
  EXPECT_EQ(other->texture, tall->texture) << "a style of the heir";
  font_delete(const_cast<Font *>(other));
  const uint32_t texture = tall->texture;
  font_delete(tall);
  EXPECT_NE(current_font, nullptr) << "another one by chance";
  EXPECT_EQ(wide->base, wide);
  font_delete(wide);
  while (fonts.count > 0)
    font_delete(rows<Font *>(fonts)[0]);
  EXPECT_EQ(current_font, nullptr);
  EXPECT_EQ(glIsTexture(texture), GL_FALSE);
  font_apply("lost:big");
  ASSERT_NE(current_font, nullptr) << "a blank stands in";
  EXPECT_STREQ(current_font->base->name, "lost:big");
  EXPECT_EQ(current_font->base->tex_width, 1U);
  font_make_blank("LOST:big");
  EXPECT_EQ(fonts.count, 1U) << "in its place";
  font_delete(rows<Font *>(fonts)[0]);
}

} // namespace
