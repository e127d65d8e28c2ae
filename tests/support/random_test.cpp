#include "support/random.h"

#include <gtest/gtest.h>

// Both ranges take 30 bits from two draws, which large whole numbers show exactly.
TEST(Random, RangesComeFromTwoDraws) {
  rand_seed(1);
  for (const int32_t expected : {41, 18467, 6334, 26500, 19169})
    EXPECT_EQ(rand15(), expected);
  for (const uint32_t seed : {2425274879U, 1U, 596U, 77777U, 4000000001U}) { // largest draws first
    rand_seed(seed);
    const int64_t low = rand15(), bits = rand15() * 32768LL + low;
    rand_seed(seed);
    EXPECT_EQ(rand_real(1 << 30), static_cast<double>(bits));
    for (const int32_t n : {1, 2, 3, 1000, 123456789, INT32_MAX}) {
      rand_seed(seed);
      EXPECT_EQ(rand_int(n), (n * bits) >> 30) << n << " from " << seed;
    }
  }
  for (const int32_t n : {0, -7, INT32_MIN})
    EXPECT_EQ(rand_int(n), 0) << n;
}
