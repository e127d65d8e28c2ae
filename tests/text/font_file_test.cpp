#include "text/font_file.h"

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "text/fmod_table.h"

namespace {

std::vector<uint8_t> generate(const std::vector<uint8_t> &table) {
  uint32_t size = 0;
  uint8_t *bytes = font_generate(table.data(), static_cast<uint32_t>(table.size()), 20, 20, 0.2F,
                                 0.2F, 0, 0, 1, 10, 1, &size);
  const std::vector<uint8_t> file(bytes, bytes + size);
  std::free(bytes);
  return file;
}

TEST(FontFile, TilesHaveTheAreasOfTheirShapes) {
  constexpr double pi = std::numbers::pi;
  const double ring = pi / 4 * (0.7 * 0.7 - 0.3 * 0.3);
  // Two discs of radius 0.7 at a distance of 1 share a lens, half of which is in the tile.
  const double lens = 2 * 0.49 * std::acos(0.5 / 0.7) - 0.5 * std::sqrt(4 * 0.49 - 1);
  const double areas[] = {0,         0.4,       ring,        0.4 + 0.3 * 0.4,
                          pi * 0.04, 0.4 * 0.7, 0.49 - 0.09, 2 * ring - lens / 2};
  std::vector<uint8_t> table;
  for (uint8_t code = 0; code < 64; code++)
    table.insert(table.end(), {1, 1, code});
  const std::vector<uint8_t> file = generate(table);
  ASSERT_EQ(file.size(), 64 * 402U);
  for (size_t code = 0; code < 64; code++) {
    double coverage = 0;
    for (size_t i = 2; i < 402; i++) {
      const uint8_t pixel = file[code * 402 + i];
      if (pixel != glyph_transparent) coverage += pixel == 39 ? 1.0 : (pixel - 16 + 0.5) / 24.0;
    }
    EXPECT_NEAR(coverage / 400, areas[code >> 3], 0.006) << "code " << code;
  }
  EXPECT_EQ(font_tile_shape(64, 0.5F, 0.5F, 0.2F, 0.2F, 0, 0, 1), 2);
}

TEST(FontFile, CurvesMoveTheirCentreAndStrokesTheirThickness) {
  // With its centre shifted by half, a ring's arms run straight before they bend.
  EXPECT_EQ(font_tile_shape(0x10, 0.69F, 0.3F, 0.2F, 0.2F, 0, 0, 1), 0);
  EXPECT_EQ(font_tile_shape(0x10, 0.69F, 0.3F, 0.2F, 0.2F, 0.5F, 0.5F, 1), 1);
  // The exchange takes the thickness along: a level bar is as thick as b tells.
  EXPECT_EQ(font_tile_shape(0x0C, 0.1F, 0.85F, 0.2F, 0.4F, 0, 0, 1), 1);
  EXPECT_EQ(font_tile_shape(0x08, 0.85F, 0.1F, 0.2F, 0.4F, 0, 0, 1), 0);
}

TEST(FontFile, TheFontIsTheSameOnEveryMachine) {
  uint32_t size = 0;
  uint8_t *bytes = fmod_generate(&size);
  EXPECT_EQ(size, 278656U);
  uint64_t hash = 0xCBF29CE484222325U; // FNV-1a
  for (uint32_t i = 0; i < size; i++)
    hash = (hash ^ bytes[i]) * 0x100000001B3U;
  std::free(bytes);
  EXPECT_EQ(hash, 12749455074316598069U);
}

TEST(FontFile, ATableCutOffAnywhereGivesTheGlyphsBefore) {
  const std::vector<uint8_t> table = {2, 1, 0x13, 0x12, 1, 3, 8, 8, 8, 1, 1, 0x20};
  const std::vector<uint8_t> whole = generate(table);
  ASSERT_EQ(whole.size(), 3 * 2 + 6 * 400U);
  for (size_t size = 0; size < table.size(); size++) {
    std::vector<uint8_t> expected = whole;
    expected.resize(size >= 9 ? 2 * 2 + 5 * 400 : size >= 4 ? 2 + 2 * 400 : 0);
    EXPECT_EQ(generate({table.data(), table.data() + size}), expected) << size << " bytes";
  }
}

} // namespace
