#include "support/clock.h"

#include <chrono>

#include <gtest/gtest.h>

static double steady() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

TEST(Clock, ReadsTheCounterOrElseTheTicks) {
  const double start = steady();
  clock_sleep(30);
  const double time = gfx_clock();
  EXPECT_GE(time, start + 0.03);
  EXPECT_LE(time, steady() + 1e-6);
  const ClockSource real = clock_source;
  clock_source.frequency = [](int32_t *, uint32_t *) { return false; };
  clock_source.ticks = [] { return UINT32_MAX; };
  clock_reset();
  EXPECT_DOUBLE_EQ(gfx_clock(), 4294967.295);
  clock_source = real;
  clock_reset();
}
