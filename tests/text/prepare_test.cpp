#include "text/prepare.h"

#include <string>

#include <gtest/gtest.h>

using namespace std::string_literals;

// Forms hold a 16-bit glyph code, the size and rise of a script in 1/256, or the value of a tag.
TEST(Prepare, NotationBecomesForms) {
  constexpr int32_t tags = -9; // as a depth: prepares tags instead
  const std::string back = "\5\2\0\1\0\0"s, up = "\5\2\263\0\46\0"s, down = "\5\2\263\0\215\377"s;
  const std::string higher = "\5\2\212\0\107\0"s, lower = "\5\2\212\0\334\377"s;
  const struct {
    int32_t depth;
    std::string text, expected;
  } rows[] = {
      {0, "alphaomEGA AlphaoPSIVarDelta x^mu", "\2\1\0\2\1\27 \2\1\30o\2\1\56\2\1\60 x^\2\1\13"s},
      {1, "^aZz1_09c_+-",
       up + "aZz" + back + "1" + down + "09" + back + "c" + down + "+" + back + "-"},
      {2, "^{a_b}c^}", up + "a" + lower + "b" + up + back + "c" + up + "}" + back},
      {2, "^{a{^}b}^}", up + "a{" + higher + "}" + up + "b" + back + up + "}" + back},
      {1, "^\5A}bcd^{}{\2a^", up + "\5A}bcd" + back + up + back + "{\2a^"},
      {tags, "#COL=7x#Tab=#tab##tab=65536#", "\5\0\7\0\0\0x\5\1\0\0\0\0tab#\5\1\0\0\1\0"s},
      {tags, "#tab=99999999999999999999", "\5\1\377\377\377\177"},
  };
  for (const auto &row : rows) {
    std::string buffer(text_prepare_room(row.text.size()), '\0');
    buffer.replace(0, row.text.size(), row.text);
    row.depth == tags ? text_prepare_tags(buffer.data()) : text_prepare(buffer.data(), row.depth);
    buffer.resize(static_cast<size_t>(text_end_of(buffer.data()) - buffer.data()));
    EXPECT_EQ(buffer, row.expected) << row.text;
  }
}
