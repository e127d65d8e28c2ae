#include "support/strings.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace {

std::string owned(char *text) {
  const std::string copy = text == nullptr ? "(null)" : text;
  std::free(text);
  return copy;
}

TEST(Strings, FilesGiveBackWhatWasWritten) {
  FILE *file = std::tmpfile();
  const std::string longest(9000, '\xFF');
  for (const char *text : {"", longest.c_str(), "", static_cast<const char *>(nullptr)})
    file_write_string(text, file);
  std::fputs("cut off", file);
  std::rewind(file);
  EXPECT_EQ(owned(file_read_string(file)), "");
  EXPECT_EQ(owned(file_read_string_or_null(file)), longest);
  EXPECT_EQ(owned(file_read_string_or_null(file)), "(null)");
  EXPECT_EQ(owned(file_read_string(file)), "");
  EXPECT_EQ(std::ftell(file), 9004);
  EXPECT_EQ(owned(file_read_string(file)), "(null)");
  std::fclose(file);
}

TEST(Strings, NamesDifferOnlyByTheCaseOfAToZ) {
  for (int c = -128; c < 256; c++)
    EXPECT_EQ(ascii_lower(c) - c, c >= 'A' && c <= 'Z' ? 32 : 0);
  EXPECT_TRUE(ascii_equal("Edge Lists 9", "eDGE lISTS 9"));
  for (const char *other : {"list", "listss", "", "kists", "list["})
    EXPECT_FALSE(ascii_equal("lists", other) || ascii_equal(other, "lists")) << other;
}

TEST(Strings, SlotsMayGetTheirOwnText) {
  char *slot = nullptr;
  string_assign(&slot, "first");
  EXPECT_EQ(string_assign(&slot, slot + 2), 3U);
  EXPECT_EQ(owned(slot), "rst");
}

} // namespace
