#include "text/font_file.h"

#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
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

// Pinned per family of shapes, with thickness and centre other than the font's own.
TEST(FontFile, TilesHaveTheirShapes) {
  constexpr uint64_t expected[] = {
      1438392035344112933U, 7031171495556659557U,  5637030220474083573U,  18308776291666042781U,
      8084064621225733109U, 10305551958615550077U, 10660614842818737845U, 13211539613178148461U};
  for (uint8_t family = 0; family < 8; family++) {
    std::vector<uint8_t> ink;
    for (int i = 0; i < 8 * 400; i++) {
      const float x = static_cast<float>(i % 20 * 2 + 1) / 40;
      const float y = static_cast<float>(i / 20 % 20 * 2 + 1) / 40;
      const auto code = static_cast<uint8_t>(8 * family + i / 400);
      ink.push_back(font_tile_shape(code, x, y, 0.15F, 0.25F, 0.375F, 0.5F, 2) == 1);
    }
    EXPECT_EQ(digest(ink.data(), ink.size()), expected[family]) << "family " << int{family};
  }
  EXPECT_EQ(font_tile_shape(64, 0.5F, 0.5F, 0.2F, 0.2F, 0, 0, 1), 2);
}

TEST(FontFile, TheFontIsTheSameOnEveryMachine) {
  uint32_t size = 0;
  uint8_t *bytes = fmod_generate(&size);
  EXPECT_EQ(size, 278656U);
  EXPECT_EQ(digest(bytes, size), 12749455074316598069U);
  std::free(bytes);
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

TEST(FontFile, AMissingOneEndsTheProgram) {
  EXPECT_EXIT(loadfont("missing.dat", "font"), testing::ExitedWithCode(1), "missing.dat");
}

} // namespace
