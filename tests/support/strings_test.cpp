#include "support/strings.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

TEST(Strings, NamesDifferOnlyByTheCaseOfAToZ) {
  for (int c = -128; c < 256; c++)
    EXPECT_EQ(ascii_lower(c) - c, c >= 'A' && c <= 'Z' ? 32 : 0);
  EXPECT_TRUE(ascii_equal_nocase("Edge Lists 9", "eDGE lISTS 9"));
  for (const char *other : {"edge", "edgess", "fdges", "edge["})
    EXPECT_FALSE(ascii_equal_nocase("edges", other)) << other;
}

TEST(Strings, AssignmentAcceptsPartOfTheOldText) {
  char *slot = nullptr;
  string_assign(&slot, "first");
  EXPECT_EQ(string_assign(&slot, slot + 2), 3U);
  EXPECT_STREQ(slot, "rst");
  std::free(slot);
}

TEST(Strings, InFilesAreNulTerminated) {
  FILE *file = std::tmpfile();
  for (const char *text : {"two\nlines", "", "third"})
    file_write_string(*text == '\0' ? nullptr : text, file);
  std::rewind(file);
  std::string seen;
  for (const auto read :
       {file_read_string, file_read_string_or_null, file_read_string_or_null, file_read_string}) {
    char *text = read(file);
    seen += text == nullptr ? "null" : text;
    std::free(text);
  }
  EXPECT_EQ(seen, "two\nlinesnullthirdnull");
  std::fclose(file);
}
