#include "text/normal_font.h"

#include <gtest/gtest.h>

#include "fonts.h"

// Pinned: who changes a letter looks at the letters, and then here.
TEST(NormalFont, LettersAreThoseThatWereLookedAt) {
  EXPECT_EQ(digest(normal_font.data(), normal_font.size()), 866810924410931940U);
}
