#include "text/normal_font.h"

#include <algorithm>
#include <array>
#include <vector>

#include <gtest/gtest.h>

#include "text/atlas.h"

TEST(NormalFont, RecordsFillTheBlockWithTheSizesOfEachRange) {
  std::array<GlyphRecord, font_codes> all;
  ASSERT_EQ(glyph_records(normal_font.data(), normal_font_size, all.data()), 512U);
  EXPECT_EQ(all[511].pixels + 1, normal_font.data() + normal_font_size);
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
  const std::vector<uint8_t> marker = {12, 12, 12, 12, 4, 12, 12, 4, 12, 12, 4, 12, 12, 12, 12};
  int markers = 0;
  for (const GlyphRecord &glyph : all)
    markers += glyph.width == 3 && glyph.height == 5 &&
               std::equal(marker.begin(), marker.end(), glyph.pixels);
  EXPECT_EQ(markers, 157);
}

// Pinned: who changes a letter looks at the letters, and then here.
TEST(NormalFont, LettersAreThoseThatWereLookedAt) {
  uint64_t hash = 0xCBF29CE484222325U; // FNV-1a
  for (const uint8_t byte : normal_font)
    hash = (hash ^ byte) * 0x100000001B3U;
  EXPECT_EQ(hash, 866810924410931940U);
}
