#include "text/layout.h"

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
#include "text/style.h"

namespace {

std::vector<TextQuad> quads;
int pauses;

constexpr TextOutput recorder = {[](const TextQuad *quad) { quads.push_back(*quad); },
                                 [] { pauses++; }, [] { pauses--; }};

float lay_out(const std::string &text, float wrap_x = 0, float bottom_y = 0, float x = 0,
              float y = 0) {
  quads.clear();
  return text_layout(&recorder, x, y, wrap_x, bottom_y, text.c_str());
}

// A form of a command, whose value may hold NULs.
std::string command(uint8_t kind, uint32_t value) {
  std::string form = {5, static_cast<char>(kind), 0, 0, 0, 0};
  std::memcpy(form.data() + 2, &value, sizeof value);
  return form;
}

const std::string words =
    "Hold right mouse button or Ctrl+arrows = Rotate view; incomprehensibilities, I say, are "
    "a maze.  Two spaces -- and an end";

TEST(Layout, PensStandWhereTheWidthsTell) {
  const Fonts built = fonts_for_test();
  ASSERT_EQ(text_gap, 9);
  EXPECT_EQ(text_width(""), 0);
  EXPECT_EQ(text_width("\nthis"), 0);
  current_font = nullptr;
  EXPECT_EQ(text_width("abc"), 14) << "five pixels a letter without a font";
  EXPECT_EQ(lay_out("abc", 0, 0, 0, 6), 6);
  font_select(built.normal);
  lay_out("l8", 0, 0, 30, 7); // in this font a letter takes its width and a pixel
  EXPECT_EQ(quads[1].left, static_cast<float>(31 + built.normal->glyph_width['l']));
  EXPECT_EQ(quads[1].right - quads[1].left, 7);
  EXPECT_EQ(quads[1].top, 7);
  EXPECT_EQ(quads[1].bottom, 20);
  for (const char *style : {"normal", "normal:width=1.37", "fmod:scale=31px", "fmod:black:small"}) {
    font_apply(style);
    lay_out(words);
    double drawn = 0;
    int measured = -1;
    size_t glyph = 0;
    for (const char c : words) {
      if (c != ' ') {
        EXPECT_EQ(static_cast<double>(quads.at(glyph++).left), drawn) << style;
      }
      const double width = current_font->base->glyph_width[static_cast<int>(c)];
      const double look = static_cast<double>(current_font->width_scale) *
                          (1 + static_cast<double>(current_font->boldness));
      drawn += std::trunc(width * look + text_gap * 0.13 + 0.5);
      measured += static_cast<int>(width * look + 0.5) + static_cast<int>(text_gap * 0.13 + 0.5);
    }
    EXPECT_EQ(text_width(words.c_str()), measured) << style;
  }
}

// A new line begins where the word, measured from the left of the space before it, would pass the
// edge, and inside a word where the pen has; so no glyph begins beyond the edge by more than a
// space.
TEST(Layout, WrappingHoldsAtEveryWidth) {
  fonts_for_test();
  for (int wrap = 1; wrap < text_width(words.c_str()) + 20; wrap++) {
    const float edge = static_cast<float>(wrap);
    const float end = lay_out(words, edge);
    size_t next = 0;
    for (size_t i = 0; i < words.size(); i++) {
      if (words[i] == ' ') continue;
      const size_t k = next++;
      EXPECT_LE(quads.at(k).left, edge + 3);
      if (k == 0) continue;
      const bool broken = quads[k].top > quads[k - 1].top;
      const int pen = static_cast<int>(quads[k - 1].right) + 1;
      if (words[i - 1] != ' ') {
        EXPECT_EQ(broken, pen > wrap) << words.substr(i) << " at " << wrap;
      } else if (words[i - 2] != ' ') {
        const std::string word = words.substr(i, words.find(' ', i) - i);
        EXPECT_EQ(broken, pen + text_width(word.c_str()) > wrap) << word << " at " << wrap;
      }
      const bool two_spaces = words[i - 1] == ' ' && words[i - 2] == ' ';
      EXPECT_TRUE(!broken || quads[k].left == 0 || two_spaces) << words.substr(i) << " at " << wrap;
    }
    ASSERT_EQ(next, quads.size());
    EXPECT_GE(end, quads.back().top);
    const float limited = lay_out(words, edge, 40);
    for (const TextQuad &quad : quads)
      EXPECT_LE(quad.top, 40);
    EXPECT_EQ(limited > 40, end > 40) << "the y of the line that was not drawn";
  }
  EXPECT_EQ(lay_out("a\nb", 0, 5), 14) << "the text's own lines have no limit";
  EXPECT_EQ(quads.size(), 2U);
  // Space and break inside a word step differently when scaled.
  font_apply("normal:height=1.5");
  EXPECT_EQ(lay_out("aa a", 15), 20.5F);
  EXPECT_EQ(lay_out("aaaaaaaa", 12) / 14, std::round(lay_out("aaaaaaaa", 12) / 14));
  EXPECT_EQ(lay_out("a\na"), 21);
}

TEST(Layout, FormsAreCodesAndCommands) {
  const Fonts built = fonts_for_test();
  const auto left = [](size_t i) { return quads.at(i).left; };
  const float a = static_cast<float>(built.normal->glyph_width['a'] + 1);
  lay_out(std::string("a\2\1\0b", 5)); // alpha, whose form holds a NUL
  EXPECT_EQ(left(1), a);
  EXPECT_EQ(left(2), a + static_cast<float>(built.normal->glyph_width[256] + 1));
  EXPECT_EQ(lay_out(std::string("a\2\0\nb", 5)), 14);
  EXPECT_EQ(left(1), 0);
  lay_out("\2\3\1"
          "a"); // beyond the tables: the marker
  EXPECT_EQ(left(1), 4);
  lay_out(command(0, 77) + "a" + command(1, 0x42F60000) + "b" + command(9, 1) + "c");
  EXPECT_EQ(left(0), 0);
  EXPECT_EQ(left(1), 123);
  EXPECT_EQ(left(2), 123 + static_cast<float>(built.normal->glyph_width['b'] + 1));
  EXPECT_EQ(text_width((command(1, 0x42F60000) + "a\2\1\1" + "a").c_str()), 2 * a - 1);
  EXPECT_EQ(text_width("a\7"), a - 1) << "a byte that would skip the end";
  // Looking ahead goes through forms whole: kappa's low byte is a tab, alpha's a NUL.
  const std::string greek = std::string("a b\2\1\t\2\1\0bbbbb c", 17);
  lay_out(greek, 30);
  EXPECT_EQ(quads.at(1).top, 14);
  lay_out("");
  EXPECT_TRUE(quads.empty());
  quads.clear();
  text_layout(&recorder, 0, 0, 0, 0, nullptr);
  ASSERT_EQ(quads.size(), 5U) << "NULL?";
  EXPECT_EQ(quads[1].left, static_cast<float>(built.normal->glyph_width['N'] + 1));
}

TEST(Layout, ScriptsChangeSizeAndRiseAndComeBack) {
  const Fonts built = fonts_for_test();
  font_apply("fmod");
  const auto script = [](int size, int rise) {
    return command(2, static_cast<uint32_t>(size) | static_cast<uint32_t>(rise) << 16);
  };
  const float end = lay_out(std::string("x") + script(128, 64) + "x" + script(64, -128) + "x" +
                                script(256, 0) + "x",
                            0, 0, 0, 200);
  ASSERT_EQ(quads.size(), 4U);
  EXPECT_EQ(pauses, 0);
  EXPECT_EQ(end, 200);
  const float tops[] = {200, 175, 249, 200}; // (-12,800 + 128) / 256 is cut towards 0
  const float heights[] = {100, 50, 25, 100};
  const float width = static_cast<float>(built.fmod->tex_width);
  const float height = static_cast<float>(built.fmod->tex_height);
  for (size_t i = 0; i < 4; i++) {
    EXPECT_EQ(quads[i].top, tops[i]) << i;
    EXPECT_EQ(quads[i].bottom - quads[i].top, heights[i]) << i;
    EXPECT_EQ(quads[i].right - quads[i].left, heights[i] * 0.4F) << i;
    EXPECT_EQ(quads[i].tex_left * width, static_cast<float>(built.fmod->glyph_x['x']));
    EXPECT_EQ((quads[i].tex_right - quads[i].tex_left) * width, 40);
    EXPECT_EQ((quads[i].tex_bottom - quads[i].tex_top) * height, 100);
  }
  EXPECT_EQ(current_font, built.fmod) << "the style is back";
  EXPECT_EQ(current_style.width_scale, 1);
}

} // namespace
