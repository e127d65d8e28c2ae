#include "support/clock.h"

#include <gtest/gtest.h>

namespace {

int64_t frequency, counter;

bool split(int64_t value, int32_t *high, uint32_t *low) {
  *high = static_cast<int32_t>(value >> 32);
  *low = static_cast<uint32_t>(value);
  return value != 0;
}

double first_reading(int64_t per_second, int64_t value) {
  frequency = per_second;
  counter = value;
  clock_reset();
  return gfx_clock();
}

TEST(Clock, ReadsTheCounterOrElseTheTicks) {
  const ClockSource real = clock_source;
  clock_source = {[](int32_t *high, uint32_t *low) { return split(frequency, high, low); },
                  [](int32_t *high, uint32_t *low) { split(counter, high, low); },
                  [] { return UINT32_MAX; }};
  EXPECT_DOUBLE_EQ(first_reading(0, 3), 4294967.295);
  EXPECT_DOUBLE_EQ(first_reading(4000000000, 11589934592), 11589934592.0 / 4e9);
  EXPECT_DOUBLE_EQ(first_reading(4000000000, -4000000000), -1.0);
  EXPECT_DOUBLE_EQ(first_reading(1LL << 32, 7LL << 31), 3.5);
  frequency = 1; // has been read
  EXPECT_DOUBLE_EQ(gfx_clock(), 3.5);
  clock_source = real;
  clock_reset();
  const double start = gfx_clock();
  clock_sleep(30);
  EXPECT_GE(gfx_clock() - start, 0.03);
}

} // namespace
