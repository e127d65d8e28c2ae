#include "support/strings.h"

#include <cstdlib>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

TEST(Strings, ComeBackFromAFileWithThePositionBehindThem) {
  std::mt19937 random(5);
  FILE *file = std::tmpfile();
  for (int i = 0; i < 60; i++) {
    std::string written(i % 4 == 0 ? 0 : random() % 9000, ' ');
    for (char &c : written)
      c = static_cast<char>(random() % 255 + 1);
    const long start = std::ftell(file);
    file_write_string(i % 8 == 0 ? nullptr : written.c_str(), file);
    const long end = std::ftell(file);
    std::fputs("cut sh", file); // text without its end, which the next round writes over
    std::fseek(file, start, SEEK_SET);
    char *text = i % 3 == 0 ? file_read_string(file) : file_read_string_or_null(file);
    EXPECT_EQ(text == nullptr, i % 3 != 0 && written.empty());
    EXPECT_EQ(std::string(text == nullptr ? "" : text), written);
    EXPECT_EQ(std::ftell(file), end);
    std::free(text);
    std::fseek(file, end, SEEK_SET);
  }
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
  std::string source = "first";
  EXPECT_EQ(string_assign(&slot, source.c_str()), 5U);
  source = "other";
  EXPECT_STREQ(slot, "first");
  EXPECT_EQ(string_assign(&slot, slot + 2), 3U); // its own tail
  EXPECT_STREQ(slot, "rst");
  std::free(slot);
}

} // namespace
