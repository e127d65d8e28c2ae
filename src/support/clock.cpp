#include "support/clock.h"

namespace {

double seconds_per_count = 0.0;

double whole(int32_t high, uint32_t low) {
  return high * 4294967296.0 + low;
}

double read_counter() {
  int32_t high = 0;
  uint32_t low = 0;
  clock_source.counter(&high, &low);
  return whole(high, low) * seconds_per_count;
}

double read_ticks() {
  return clock_source.ticks() * 0.001;
}

double select_clock() {
  int32_t high = 0;
  uint32_t low = 0;
  if (clock_source.frequency(&high, &low)) {
    seconds_per_count = 1.0 / whole(high, low);
    gfx_clock = read_counter;
  } else {
    gfx_clock = read_ticks;
  }
  return gfx_clock();
}

} // namespace

double (*gfx_clock)() = select_clock;

void clock_reset() {
  gfx_clock = select_clock;
}

uint32_t clock_ticks() {
  return clock_source.ticks();
}
