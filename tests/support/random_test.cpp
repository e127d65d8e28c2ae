#include "support/random.h"

#include <gtest/gtest.h>

namespace {

TEST(Random, EveryRangeIsFilledEvenly) {
  rand_seed(1);
  for (const int32_t expected : {41, 18467, 6334, 26500, 19169}) // the same on every platform
    EXPECT_EQ(rand15(), expected);
  int counts[12] = {};
  for (int i = 0; i < 12 * 2500; i++)
    counts[rand_int(12)]++;
  for (const int count : counts)
    EXPECT_NEAR(count, 2500, 250); // five standard deviations
}

// Both helpers take one 30-bit fraction of their range; whole numbers give it exactly.
TEST(Random, SecondDrawIsTheHighPart) {
  for (uint32_t seed = 0; seed < 2000; seed++) {
    rand_seed(seed);
    const int64_t r1 = rand15();
    const int64_t bits = int64_t{rand15()} << 15 | r1;
    const auto n = static_cast<int32_t>(seed * 37 + 1);
    rand_seed(seed);
    EXPECT_EQ(rand_int(n), (n * bits) >> 30);
    rand_seed(seed);
    EXPECT_EQ(rand_real(1 << 30), static_cast<double>(bits));
  }
}

TEST(Random, NeverReachesTheUpperBound) {
  constexpr uint32_t seed = 2425274879U; // its first two draws are the largest
  for (const int32_t n : {1, 2, 12, 1 << 20, (1 << 30) - 1}) {
    rand_seed(seed);
    EXPECT_EQ(rand_int(n), n - 1);
    rand_seed(seed);
    const double fraction = rand_real(n / 3.0) / (n / 3.0);
    EXPECT_TRUE(fraction < 1.0 && fraction > 0.999999999) << fraction;
  }
  for (const int32_t n : {0, -7, INT32_MIN})
    EXPECT_EQ(rand_int(n), 0) << n;
}

} // namespace
