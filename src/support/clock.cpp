#include "support/clock.h"

#include <chrono>
#include <functional>
#include <thread>

namespace {

int64_t steady_nanoseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

bool steady_frequency(int32_t *high, uint32_t *low) {
  *high = 0;
  *low = 1000000000;
  return true;
}

void steady_counter(int32_t *high, uint32_t *low) {
  const int64_t count = steady_nanoseconds();
  *high = static_cast<int32_t>(count >> 32);
  *low = static_cast<uint32_t>(count & 0xFFFFFFFF);
}

uint32_t steady_ticks() {
  return static_cast<uint32_t>(steady_nanoseconds() / 1000000);
}

ClockSource source = {steady_frequency, steady_counter, steady_ticks};
double seconds_per_count = 0.0;

double join_halves(int32_t high, uint32_t low) {
  return high * 4294967296.0 + low;
}

double read_counter() {
  int32_t high = 0;
  uint32_t low = 0;
  source.counter(&high, &low);
  return join_halves(high, low) * seconds_per_count;
}

double read_ticks() {
  return source.ticks() * 0.001;
}

double select_clock() {
  int32_t high = 0;
  uint32_t low = 0;
  if (source.frequency(&high, &low)) {
    seconds_per_count = 1.0 / join_halves(high, low);
    gfx_clock = read_counter;
  } else {
    gfx_clock = read_ticks;
  }
  return gfx_clock();
}

} // namespace

const ClockSource clock_steady = {steady_frequency, steady_counter, steady_ticks};

double (*gfx_clock)() = select_clock;

void clock_set_source(const ClockSource &chosen) {
  source = chosen;
  gfx_clock = select_clock;
}

uint32_t clock_ticks() {
  return source.ticks();
}

uint32_t clock_thread() {
  return static_cast<uint32_t>(std::hash<std::thread::id>()(std::this_thread::get_id()));
}

void clock_sleep(int32_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
