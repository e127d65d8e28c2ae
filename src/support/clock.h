#pragma once

#include <cstdint>

// What a clock is read from. A platform with a clock of its own, and tests, put theirs here before
// the first reading.
struct ClockSource {
  // Counts per second; false if there is no counter.
  bool (*frequency)(int32_t *high, uint32_t *low);
  // The running counter.
  void (*counter)(int32_t *high, uint32_t *low);
  // Milliseconds, wrapping.
  uint32_t (*ticks)();
};
extern ClockSource clock_source;

// Seconds from an arbitrary origin; only differences mean anything. Starts at a selector that
// picks the counter, or the millisecond ticks where there is none, on the first call.
extern double (*gfx_clock)();

// Points gfx_clock back at the selector, as at program start.
void clock_reset();

// Milliseconds since some start, wrapping: the seed of the random numbers.
uint32_t clock_ticks();

// A number that tells the running thread from most others.
uint32_t clock_thread();

// Waits.
void clock_sleep(int32_t milliseconds);
