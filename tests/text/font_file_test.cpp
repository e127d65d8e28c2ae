#include "text/font_file.h"

#include <cstdlib>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
#include "text/fmod_table.h"

namespace {

std::vector<uint8_t> generate(const std::vector<uint8_t> &table, float a, float b, float c, float d,
                              float e) {
  uint32_t size = 0;
  uint8_t *bytes = font_generate(table.data(), static_cast<uint32_t>(table.size()), 20, 20, a, b, c,
                                 d, e, 10, 1, &size);
  const std::vector<uint8_t> file(bytes, bytes + size);
  std::free(bytes);
  return file;
}

// Pinned for each family of shapes, with other strokes than the font's own.
TEST(FontFile, TilesHaveTheirShapes) {
  constexpr uint64_t expected[] = {
      10533199144004866257U, 10400778283846043937U, 1410302909226573021U, 6920173036375705429U,
      13872209764421790385U, 15306963492123549789U, 5926122587564103097U, 838190015332867828U};
  for (uint8_t family = 0; family < 8; family++) {
    std::vector<uint8_t> table(2 + 8, 8);
    table[1] = 1;
    std::iota(table.begin() + 2, table.end(), 8 * family);
    const std::vector<uint8_t> file = generate(table, 0.15F, 0.25F, 0.375F, 0.5F, 2);
    EXPECT_EQ(digest(file.data(), file.size()), expected[family]) << "family " << int{family};
  }
  EXPECT_EQ(font_tile_shape(64, 0.5F, 0.5F, 0.2F, 0.2F, 0, 0, 1), 2);
}

TEST(FontFile, GlyphsAreThoseBeforeTheTablesCut) {
  uint32_t size = 0;
  uint8_t *all = fmod_generate(&size);
  EXPECT_EQ(digest(all, size), 12749455074316598069U);
  for (uint32_t cut = 0; cut <= 12; cut++) // in records of one tile
    EXPECT_EQ(generate({fmod_table.begin(), fmod_table.begin() + cut}, 0.2F, 0.2F, 0, 0, 1),
              std::vector(all, all + cut / 3 * 402))
        << cut;
  std::free(all);
}

TEST(FontFile, AMissingOneEndsTheProgram) {
  EXPECT_EXIT(loadfont("missing.dat", "font"), testing::ExitedWithCode(1), "missing.dat");
}

} // namespace
