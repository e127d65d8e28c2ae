#pragma once

#include <cstddef>
#include <cstdint>

// What a clock is read from, at first the system's. Tests put their own here before the first
// reading.
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

// What differs between systems, like what clock_source starts with.

// A number that tells the running thread from most others.
uint32_t clock_thread();

// Waits.
void clock_sleep(int32_t milliseconds);

// Puts the local date and time there, as "2018-Jan-31 23:59:59" with the month in the user's
// language; an empty text if it can't be told.
constexpr size_t clock_stamp_size = 64;
void clock_stamp(char stamp[clock_stamp_size]);
