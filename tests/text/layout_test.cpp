#include "text/layout.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "fonts.h"
#include "text/style.h"

using namespace std::string_literals;

namespace {

std::ostringstream output;

void write_quad(const TextQuad *q) {
  output << q->left << ',' << q->top << '+' << q->right - q->left << 'x' << q->bottom - q->top
         << ' ';
}

constexpr TextOutput recorder = {write_quad, [] { output << '('; }, [] { output << ") "; }};

// In "fmod" a cell is 100 high, a letter 40 wide, "m" 60, "i" and the space 20; the gap is 5.33. In
// "normal" a cell is 13 high, "m" 12 wide, alpha 8; the gap is 1.17. Commands are a tab to 77.5 and
// scripts of 1/2, 1/4 and 1.
TEST(Layout, PositionsGlyphsAndStopsAfterTheLastLine) {
  fonts_for_test();
  struct Row {
    const char *style;
    std::string text;
    float x, y, wrap_x, bottom_y;
    const char *expected; // quads, scripts in parentheses, the pen's y, text_width
  };
  const Row rows[] = {
      {"fmod", "mi a", 30, 7, 0, 0, "30,7+60x100 95,7+20x100 145,7+40x100 |7|159"},
      {"fmod", "\na", 0, 0, 0, 50, "0,101+40x100 |101|0"},
      {"fmod:boldness=0.03", "aa", 0, 0, 0, 0, "0,0+40x100 47,0+40x100 |0|91"},
      {"fmod:width=2.5:height=0.505", "a\na", 0, 0, 0, 0, "0,0+100x50.5 0,52+100x50.5 |52|112"},

      {"fmod", "a a", 30, 7, 119, 0, "30,7+40x100 100,7+40x100 |108|114"},
      {"fmod", "a a", 30, 7, 118, 0, "30,7+40x100 30,108+40x100 |108|114"},
      {"fmod", "aa", 30, 7, 75, 0, "30,7+40x100 75,7+40x100 |108|89"},
      {"fmod", "aa", 30, 7, 74, 0, "30,7+40x100 30,108+40x100 |209|89"},
      {"fmod", "a iiii", 0, 0, 60, 0,
       "0,0+40x100 0,101+20x100 25,101+20x100 50,101+20x100 0,202+20x100 |202|169"},
      {"fmod:height=0.505", "a aa", 0, 0, 44, 0,
       "0,0+40x50.5 0,51.5+40x50.5 0,152.5+40x50.5 |253.5|159"},
      {"fmod", "a i\ta", 0, 0, 69, 0, "0,0+40x100 70,0+20x100 0,101+20x100 25,101+40x100 |202|164"},
      {"fmod", "a a\2\1\t\2\1\0a a"s, 0, 0, 134, 0,
       "0,0+40x100 70,0+40x100 115,0+0x100 120,0+0x100 125,0+40x100 0,101+40x100 |101|229"},
      {"fmod", "a a a", 0, 0, 50, 101, "0,0+40x100 0,101+40x100 |202|184"},
      {"fmod", "a a a", 0, 0, 50, 100.9F, "0,0+40x100 |101|184"},

      {"normal", "ma", 0, 0, 0, 0, "0,0+12x13 13,0+7x13 |0|20"},
      {"normal", "m\2\1\0\nm"s, 0, 0, 0, 0, "0,0+12x13 13,0+8x13 0,14+12x13 |14|12"},
      {"normal", "m\2\0\nm"s, 0, 0, 0, 0, "0,0+12x13 0,14+12x13 |14|25"},
      {"normal", "\2\1\377\2\2\0\1m"s, 0, 0, 0, 0, "0,0+1x13 2,0+3x13 6,0+3x13 10,0+12x13 |0|0"},
      {"normal", "\5\0\1\1\1\1m\5\1\0\0\233\102m\5\3\1\1\1\1m"s, 0, 0, 0, 0,
       "0,0+12x13 77.5,0+12x13 90.5,0+12x13 |0|38"},
      {"fmod", "a\5\2\200\0\100\0a\5\2\100\0\200\377a\5\2\0\1\0\0a"s, 0, 200, 0, 0,
       "0,200+40x100 () 45,175+20x50 () 68,249+10x25 () 79,200+40x100 |200|179"},
      {"fmod:scale=0.5", "a\5\2\200\0\41\0a\na"s, 0, 200, 0, 0,
       "0,200+20x50 () 23,194+10x25 0,220+10x25 |220|45"},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(testing::Message() << row.style << " \"" << row.text << "\" " << row.wrap_x);
    font_apply(row.style);
    const Font *font = current_font;
    const char *text = row.text.c_str();
    output.str("");
    const float end = text_layout(&recorder, row.x, row.y, row.wrap_x, row.bottom_y, text);
    output << '|' << end << '|' << text_width(text);
    EXPECT_EQ(output.str(), row.expected);
    EXPECT_EQ(current_font, font);
  }
  current_font = nullptr;
  EXPECT_EQ(text_width("abc"), 14);
  EXPECT_EQ(text_layout(&recorder, 0, 6, 0, 0, "abc"), 6);
}

} // namespace
