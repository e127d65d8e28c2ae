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
  clock_set_source(
      {[](int32_t *, uint32_t *) { return false; }, nullptr, [] { return UINT32_MAX; }});
  EXPECT_DOUBLE_EQ(gfx_clock(), 4294967.295);
  clock_set_source(clock_steady);
}
