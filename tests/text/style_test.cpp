#include "text/style.h"

#include <iterator>
#include <set>
#include <tuple>

#include <gtest/gtest.h>

#include "fonts.h"
#include "gfx/gl.h"
#include "support/random.h"

// In "fmod" the widest glyph has 60 pixels and a cell is 100 pixels high, in "normal" 16 and 13.
TEST(Style, AttributesGiveAnEntryNamedByItsFields) {
  const struct {
    const char *text, *name;
  } rows[] = {
      {"FMOD:Bold:width=2:height=0.5", "fmod:width=2.2:height=0.5:boldness=0.05"},
      {"fmod:demibold", "fmod:boldness=0.03"},
      {"fmod:black:bold", "fmod:width=1.32:boldness=0.13"},
      {"nowhere:small", "normal:width=0.666667:height=0.666667"},
      {"normal:size=200%:width=26px", "normal:width=2:height=2"},
      {"normal:width=1300%px:skew=13%px\xB0", "normal:width=100:skew=1"},
      {"fmod:width=50%:width=300%:height=150%:height=3", "fmod:width=1.5:height=4.5"},
      {"normal:boldness=2px:boldness=10%:boldness=1", "normal:boldness=1.225"},
      {"fmod:italic:skew=20%:skew=10px:skew=1", "fmod:skew=1.7"},
      {"fmod:italic:angle=45\xB0", "fmod:skew=1"},
      {"fmod:bold:italic:big:normal:italic", "fmod:skew=0.4"},
      {"fmod:sparkling::width:scale=nan:width=inf:size=1e300:big=7", "fmod:width=1.5:height=1.5"},
  };
  for (const auto &row : rows) {
    fonts_for_test();
    font_apply(row.text);
    EXPECT_STREQ(current_font->name, row.name) << row.text;
  }
  font_apply("fmod:width=2.2:height=4:black");
  EXPECT_EQ(std::tuple(text_height, text_max_width, text_gap), std::tuple(255, 158, 108));
}

// An entry is reused if the sum of its differences is below 1: 50 times the boldness, 20 times the
// skew, and for both sizes the pixels of the widest glyph or the cell, or 10.25 times the logarithm
// of the ratio if that is smaller.
TEST(Style, EntriesWithinAboutAPixelAreReused) {
  const Fonts built = fonts_for_test();
  font_find_style(built.fmod, 0.05F, 0.05F, 0, 0);
  const float fields[][4] = {
      {1, 1, 0, 0.0199F},       {1, 1, 0, -0.0201F},    {1, 1, 0.0498F, 0},
      {1, 1, -0.0502F, 0},      {1.1024F, 1, 0, 0},     {0.9069F, 1, 0, 0},
      {1, 0.9071F, 0, 0},       {1, 1.1026F, 0, 0},     {1.0499F, 1.0499F, 0, 0},
      {1.0501F, 1.0501F, 0, 0}, {1.09F, 1, 0.005F, 0},  {1.092F, 1, 0.005F, 0},
      {0.0666F, 0.05F, 0, 0},   {0.0668F, 0.05F, 0, 0}, {0.05F, 0.0599F, 0, 0},
      {0.05F, 0.0601F, 0, 0}};
  for (size_t i = 0; i < std::size(fields); i++) { // reused and not reused in turn
    const uint32_t before = fonts.count;
    const auto &[width, height, skew, boldness] = fields[i];
    Font *found = font_find_style(built.fmod, width, height, skew, boldness);
    EXPECT_EQ(fonts.count - before, i % 2) << "row " << i;
    if (i % 2 == 1) font_delete(found);
  }
}

TEST(Style, WithoutAFontARandomOneIsChosen) {
  const Fonts built = fonts_for_test();
  std::set<const Font *> parsed, selected;
  for (uint32_t seed = 0; seed < 40; seed++) {
    rand_seed(seed * 7919);
    current_font = nullptr;
    FontStyle style;
    font_parse_style(&style, "nowhere");
    parsed.insert(style.base);
    font_select(font_copy(built.fmod));
    font_delete(current_font);
    selected.insert(current_font->base);
  }
  EXPECT_EQ(parsed.size(), 2U);
  EXPECT_EQ(selected.size(), 2U);
}

TEST(Style, AStyleReplacesItsDeletedBase) {
  const Fonts built = fonts_for_test();
  Font *wide = font_find_style(built.fmod, 3, 1, 0, 0);
  const Font *tall = font_find_style(built.fmod, 1, 3, 0, 0);
  const uint32_t texture = tall->texture;
  font_select(wide);
  font_delete(built.fmod);
  EXPECT_EQ(wide->base, wide);
  EXPECT_EQ(tall->base, wide);
  EXPECT_EQ(font_find_style(wide, 7, 1, 0, 0)->texture, texture);
  while (fonts.count > 0)
    font_delete(rows<Font *>(fonts)[0]);
  EXPECT_EQ(glIsTexture(texture), GL_FALSE);
  font_apply("lost:big");
  EXPECT_STREQ(current_font->base->name, "lost:big"); // a blank font
  font_delete(font_make_blank("LOST:big"));
  EXPECT_EQ(fonts.count, 0U) << "the other font of that name is deleted";
}
