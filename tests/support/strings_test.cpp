#include "support/strings.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

TEST(Strings, ComeBackFromAFileWithThePositionBehindThem) {
  FILE *file = std::tmpfile();
  for (size_t i = 0; i < 60; i++) {
    std::string written(i % 4 == 0 ? 0 : i * 150, ' ');
    for (size_t c = 0; c < written.size(); c++)
      written[c] = static_cast<char>((c * 31 + i) % 255 + 1);
    const long start = std::ftell(file);
    file_write_string(i % 8 == 0 ? nullptr : written.c_str(), file);
    std::fputs("cut sh", file); // text without its end, which the next round writes over
    std::fseek(file, start, SEEK_SET);
    char *text = i % 3 == 0 ? file_read_string(file) : file_read_string_or_null(file);
    EXPECT_EQ(text == nullptr, i % 3 != 0 && written.empty());
    EXPECT_EQ(std::string(text == nullptr ? "" : text), written);
    EXPECT_EQ(std::ftell(file), start + static_cast<long>(written.size()) + 1);
    std::free(text);
    std::fseek(file, 0, SEEK_CUR); // from reading to writing
  }
  std::fseek(file, 0, SEEK_END);
  EXPECT_EQ(file_read_string_or_null(file), nullptr);
  std::fclose(file);
}

TEST(Strings, NamesDifferOnlyByTheCaseOfAToZ) {
  for (int c = -128; c < 256; c++)
    EXPECT_EQ(ascii_lower(c) - c, c >= 65 && c <= 90 ? 32 : 0);
  EXPECT_TRUE(ascii_equal("Edge Lists 9", "eDGE lISTS 9"));
  for (const char *other : {"list", "listss", "", "kists", "list["})
    EXPECT_FALSE(ascii_equal("lists", other) || ascii_equal(other, "lists")) << other;
}

TEST(Strings, SlotsOwnTheirCopy) {
  char *slot = nullptr;
  EXPECT_EQ(string_assign(&slot, "first"), 5U);
  EXPECT_EQ(string_assign(&slot, slot + 2), 3U); // its own tail
  EXPECT_STREQ(slot, "rst");
  std::free(slot);
}
