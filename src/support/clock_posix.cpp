#include "support/clock.h"

#include <chrono>
#include <ctime>
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

} // namespace

ClockSource clock_source = {steady_frequency, steady_counter, steady_ticks};

uint32_t clock_thread() {
  return static_cast<uint32_t>(std::hash<std::thread::id>()(std::this_thread::get_id()));
}

void clock_sleep(int32_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void clock_stamp(char stamp[clock_stamp_size]) {
  const std::time_t now = std::time(nullptr);
  const std::tm *local = std::localtime(&now);
  if (local == nullptr || std::strftime(stamp, clock_stamp_size, "%Y-%b-%d %H:%M:%S", local) == 0)
    stamp[0] = '\0';
}
