#include "text/font_file.h"

#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
#include "text/fmod_table.h"

namespace {

// With other strokes than the font's own.
std::vector<uint8_t> generate(const std::vector<uint8_t> &table) {
  uint32_t size = 0;
  uint8_t *bytes = font_generate(table.data(), static_cast<uint32_t>(table.size()), 11, 9, 0.15F,
                                 0.25F, 0.375F, 0.5F, 2, 3, 1, &size);
  const std::vector<uint8_t> file(bytes, bytes + size);
  std::free(bytes);
  return file;
}

// A glyph for each family of shapes, of all its eight tiles. Pinned.
TEST(FontFile, TilesHaveTheirShapesUpToTheTablesEnd) {
  constexpr uint64_t shapes[] = {149208212257002691U,   17353230919798363787U, 8144683701059169801U,
                                 124562760943581111U,   15816864102749762323U, 4461751695903005671U,
                                 10163265333006213195U, 13044369326979435241U};
  constexpr size_t glyph = 2 + 8 * 11 * 9;
  std::vector<uint8_t> table;
  for (uint8_t code = 0; code < 64; code++) {
    if (code % 8 == 0) table.insert(table.end(), {4, 2});
    table.push_back(code);
  }
  const std::vector<uint8_t> all = generate(table);
  for (size_t family = 0; family < 8; family++)
    EXPECT_EQ(digest(&all[family * glyph], glyph), shapes[family]) << family;
  for (const size_t cut : {0U, 2U, 9U, 10U, 11U, 12U, 79U})
    EXPECT_EQ(generate({table.begin(), table.begin() + cut}),
              std::vector(all.begin(), all.begin() + cut / 10 * glyph))
        << cut;
  EXPECT_EQ(font_tile_shape(64, 0.5F, 0.5F, 0.2F, 0.2F, 0, 0, 1), 2);
}

TEST(FontFile, TheFontIsTheSameOnEveryMachine) {
  uint32_t size = 0;
  uint8_t *bytes = fmod_generate(&size);
  EXPECT_EQ(digest(bytes, size), 12749455074316598069U);
  std::free(bytes);
}

// Such tests run first, before the driver has threads that a copied process would lack.
TEST(FontFileDeathTest, AMissingFileEndsTheProgram) {
  EXPECT_EXIT(loadfont("missing.dat", "font"), testing::ExitedWithCode(1), "missing.dat");
}

} // namespace
