#include "support/clock.h"

#include <gtest/gtest.h>

static bool counter_exists;
static int64_t frequency, counter;

static bool split(int64_t value, int32_t *high, uint32_t *low) {
  *high = static_cast<int32_t>(value >> 32), *low = static_cast<uint32_t>(value);
  return counter_exists;
}

static double first_reading(bool exists, int64_t per_second, int64_t value) {
  counter_exists = exists, frequency = per_second, counter = value;
  clock_reset();
  return gfx_clock();
}

TEST(Clock, PicksTheCounterAndOtherwiseTheTicks) {
  const ClockSource real = clock_source;
  clock_source = {[](int32_t *high, uint32_t *low) { return split(frequency, high, low); },
                  [](int32_t *high, uint32_t *low) { split(counter, high, low); },
                  [] { return UINT32_MAX; }};
  // Low words beyond the signed range, negative high words.
  EXPECT_DOUBLE_EQ(first_reading(true, 4000000000, 11589934592), 11589934592.0 / 4e9);
  EXPECT_DOUBLE_EQ(first_reading(true, 4000000000, -4000000000), -1.0);
  EXPECT_DOUBLE_EQ(first_reading(true, 1LL << 32, 7LL << 31), 3.5);
  frequency = 1; // it is asked for only once
  EXPECT_DOUBLE_EQ(gfx_clock(), 3.5);
  EXPECT_DOUBLE_EQ(first_reading(false, 1000, 3), 4294967.295);
  clock_source = real;
  clock_reset();
  const double start = gfx_clock();
  clock_sleep(30);
  EXPECT_GE(gfx_clock() - start, 0.03);
}
