#include "text/normal_font.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct Glyph {
  uint32_t width = 0, height = 0;
  std::vector<std::string> rows; // of pixel values as chars
};

constexpr char clear = '\xFF';
constexpr char full = 39;

std::vector<Glyph> glyphs() {
  std::vector<Glyph> all;
  for (size_t at = 0; at + 1 < normal_font_size;) {
    Glyph glyph = {normal_font[at], normal_font[at + 1], {}};
    at += 2;
    for (uint32_t y = 0; y < glyph.height && at + glyph.width <= normal_font_size; y++) {
      const auto row = normal_font.begin() + static_cast<std::ptrdiff_t>(at);
      glyph.rows.emplace_back(row, row + glyph.width);
      at += glyph.width;
    }
    all.push_back(glyph);
  }
  return all;
}

const std::vector<Glyph> all = glyphs();

const Glyph &glyph_of(char letter) {
  return all.at(static_cast<unsigned char>(letter));
}

// The rows without the blank columns on both sides and without blank rows below.
std::vector<std::string> ink(const Glyph &glyph) {
  size_t left = glyph.width, right = 0;
  std::vector<std::string> rows = glyph.rows;
  for (const std::string &row : rows) {
    left = std::min(left, row.find_first_not_of(clear));
    const size_t last = row.find_last_not_of(clear);
    if (last != row.npos) right = std::max(right, last + 1);
  }
  for (std::string &row : rows)
    row = row.substr(std::min(left, right), right - left);
  while (!rows.empty() && rows.back().find_first_not_of(clear) == std::string::npos)
    rows.pop_back();
  return rows;
}

std::vector<std::string> mirrored(std::vector<std::string> rows) {
  for (std::string &row : rows)
    std::reverse(row.begin(), row.end());
  return rows;
}

} // namespace

TEST(NormalFont, RecordsFillTheBlockWithTheSizesOfEachRange) {
  ASSERT_EQ(all.size(), 512U);
  size_t bytes = 0;
  for (const Glyph &glyph : all)
    bytes += 2 + glyph.rows.size() * glyph.width;
  EXPECT_EQ(bytes, normal_font_size);
  const struct {
    uint32_t first, last, narrowest, widest;
    std::vector<uint32_t> heights; // empty for any
  } ranges[] = {{33, 126, 1, 13, {}},       {65, 90, 4, 13, {11}},      {48, 57, 7, 7, {11}},
                {97, 122, 2, 12, {11, 13}}, {67, 67, 8, 8, {11}},       {9, 9, 16, 16, {1}},
                {32, 32, 2, 2, {1}},        {256, 279, 4, 9, {10, 13}}, {280, 303, 4, 12, {10}},
                {304, 511, 1, 1, {1}}};
  for (const auto &range : ranges) {
    uint32_t narrowest = 255, widest = 0;
    for (uint32_t code = range.first; code <= range.last; code++) {
      narrowest = std::min(narrowest, all[code].width);
      widest = std::max(widest, all[code].width);
      EXPECT_LE(all[code].height, 13U) << code;
      EXPECT_TRUE(range.heights.empty() || std::ranges::count(range.heights, all[code].height) == 1)
          << code;
    }
    EXPECT_EQ(narrowest, range.narrowest) << range.first;
    EXPECT_EQ(widest, range.widest) << range.first;
  }
  const std::vector<std::string> marker = {"\f\f\f", "\f\4\f", "\f\4\f", "\f\4\f", "\f\f\f"};
  int markers = 0;
  for (uint32_t code = 0; code < 256; code++) {
    if (code == 9 || (code >= 32 && code <= 126) || code == 163 || code == 166 || code == 172)
      continue;
    EXPECT_EQ(all[code].rows, marker) << code;
    markers++;
  }
  EXPECT_EQ(markers, 157);
  for (uint32_t code = 304; code < 512; code++)
    EXPECT_EQ(all[code].rows.at(0), "\1");
  EXPECT_TRUE(ink(all[9]).empty() && ink(all[32]).empty());
}

TEST(NormalFont, PicturesAreGreyInkThatDiffersFromLetterToLetter) {
  int white = 0;
  std::vector<std::vector<std::string>> seen;
  for (uint32_t code = 33; code < 304; code++) {
    if (code > 126 && code < 256 && code != 163 && code != 166 && code != 172) continue;
    EXPECT_FALSE(ink(all[code]).empty()) << code;
    for (const std::string &row : all[code].rows) {
      for (const char pixel : row) {
        white += pixel == 15;
        EXPECT_TRUE(pixel == clear || pixel == 15 || (pixel >= 19 && pixel <= full)) << code;
      }
    }
    if (code > 126) continue;
    EXPECT_EQ(std::ranges::count(seen, ink(all[code])), 0) << code;
    seen.push_back(ink(all[code]));
  }
  EXPECT_GT(white, 0);
  EXPECT_LT(white, 10);
}

TEST(NormalFont, LettersStandOnRowNine) {
  for (char letter = '0'; letter <= 'z'; letter++) {
    if (!std::isalnum(static_cast<unsigned char>(letter))) continue;
    const bool hangs = std::string_view("gjpqyQ").find(letter) != std::string_view::npos;
    const size_t rows = ink(glyph_of(letter)).size();
    EXPECT_TRUE(hangs ? rows > 10 : rows == 10) << letter;
  }
}

TEST(NormalFont, StemsAreFullAndTwoPixelsApart) {
  const struct {
    char letter;
    size_t column, first, last;
  } stems[] = {{'l', 1, 0, 8}, {'I', 2, 1, 9}, {'H', 1, 1, 9}, {'H', 8, 1, 9},  {'i', 1, 3, 9},
               {'n', 1, 3, 9}, {'n', 6, 5, 9}, {'m', 6, 5, 9}, {'p', 1, 3, 12}, {'d', 6, 0, 9}};
  for (const auto &stem : stems) {
    for (size_t y = stem.first; y <= stem.last; y++)
      EXPECT_EQ(glyph_of(stem.letter).rows.at(y).at(stem.column), full) << stem.letter << y;
  }
  // One blank column before the ink and none behind it, so that the drawing's gap makes two.
  for (const char letter : std::string_view("HMNUhimnu")) {
    const std::string &row = glyph_of(letter).rows.at(6);
    EXPECT_TRUE(row.front() == clear && row.at(1) == full && row.back() == full) << letter;
  }
}

TEST(NormalFont, TwinsAndMirrorImagesAgree) {
  for (const std::string_view pair :
       {"()", "[]", "{}", "<>", "/\\", "bd", "pq", "AA", "HH", "II", "MM", "OO", "TT", "UU", "VV",
        "WW", "XX", "YY", "oo", "vv",  "ww", "xx", "00", "88", "++", "--", "==", "||", "^^", "**"})
    EXPECT_EQ(ink(glyph_of(pair[0])), mirrored(ink(glyph_of(pair[1])))) << pair;
  // Greek letters drawn as Latin ones, which also shows that the order of codes is kept.
  constexpr std::string_view greek = "AB  EZH IK MN O P TY X  "; // capitals, alpha to omega
  for (uint32_t i = 0; i < greek.size(); i++) {
    if (greek[i] == ' ') continue;
    EXPECT_EQ(ink(all[280 + i]), ink(glyph_of(greek[i]))) << greek[i];
  }
  EXPECT_EQ(ink(all[270]), ink(glyph_of('o')));
}
