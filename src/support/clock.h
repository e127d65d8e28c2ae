#pragma once

#include <cstdint>

// Functions that read a clock. A platform with a clock of its own sets them, and so do tests.
struct ClockSource {
  // Counts per second, as two halves; false if there is no counter.
  bool (*frequency)(int32_t *high, uint32_t *low);
  // The running counter.
  void (*counter)(int32_t *high, uint32_t *low);
  // Milliseconds; wraps around.
  uint32_t (*ticks)();
};

// The monotonic clock of the standard library: the default.
extern const ClockSource clock_steady;

// Sets the source. The next call of gfx_clock chooses between its counter and its ticks again.
void clock_set_source(const ClockSource &source);

// Seconds from an arbitrary origin; only differences have a meaning. Read from the counter, or from
// the ticks if there is none.
extern double (*gfx_clock)();

// Milliseconds from an arbitrary origin, wrapping around. Seeds the random numbers.
uint32_t clock_ticks();

// A number for the running thread; two threads rarely share one.
uint32_t clock_thread();

void clock_sleep(int32_t milliseconds);
