#include "support/clock.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

struct Fake {
  bool counter_exists;
  int32_t frequency_high;
  uint32_t frequency_low;
  int32_t high;
  uint32_t low, ticks;
} fake;

bool fake_frequency(int32_t *high, uint32_t *low) {
  *high = fake.frequency_high;
  *low = fake.frequency_low;
  return fake.counter_exists;
}

void fake_counter(int32_t *high, uint32_t *low) {
  *high = fake.high;
  *low = fake.low;
}

double first_reading(const Fake &values) {
  fake = values;
  clock_reset();
  return gfx_clock();
}

TEST(Clock, PicksTheCounterAndOtherwiseTheTicks) {
  const ClockSource real = clock_source;
  clock_source = {fake_frequency, fake_counter, [] { return fake.ticks; }};
  // Low words beyond the signed range, negative high words.
  EXPECT_DOUBLE_EQ(first_reading({true, 0, 4000000000U, 2, 3000000000U, 7}), 11589934592.0 / 4e9);
  EXPECT_DOUBLE_EQ(first_reading({true, 0, 4000000000U, -1, 294967296U, 7}), -1.0);
  EXPECT_DOUBLE_EQ(first_reading({true, 1, 0, 3, 0x80000000U, 7}), 3.5);
  fake = {true, 2, 0, 4, 0, 7}; // the frequency is asked for only once
  EXPECT_DOUBLE_EQ(gfx_clock(), 4.0);
  EXPECT_DOUBLE_EQ(first_reading({false, 0, 1000, 3, 3, UINT32_MAX}), 4294967.295);
  clock_source = real;
  clock_reset();
}

TEST(Clock, SecondsAndTicksRunTogetherThroughASleep) {
  const double start = gfx_clock();
  clock_sleep(30);
  EXPECT_GE(gfx_clock() - start, 0.03);
  EXPECT_NEAR(clock_ticks() * 0.001, std::fmod(gfx_clock(), 4294967.296), 0.5); // ticks wrap
}

} // namespace
