#include "support/strings.h"

#include <cstdlib>

#include <gtest/gtest.h>

TEST(Strings, NamesDifferOnlyByTheCaseOfAToZ) {
  for (int c = -128; c < 256; c++)
    EXPECT_EQ(ascii_lower(c) - c, c >= 'A' && c <= 'Z' ? 32 : 0);
  EXPECT_TRUE(ascii_equal("Edge Lists 9", "eDGE lISTS 9"));
  for (const char *other : {"list", "listss", "kists", "list["})
    EXPECT_FALSE(ascii_equal("lists", other)) << other;
}

TEST(Strings, SlotsMayGetTheirOwnText) {
  char *slot = nullptr;
  string_assign(&slot, "first");
  EXPECT_EQ(string_assign(&slot, slot + 2), 3U);
  EXPECT_STREQ(slot, "rst");
  std::free(slot);
}
