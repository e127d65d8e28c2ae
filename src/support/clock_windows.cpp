#include "support/clock.h"

#include <cstdio>

#include <windows.h>

namespace {

bool counter_frequency(int32_t *high, uint32_t *low) {
  LARGE_INTEGER number = {};
  if (QueryPerformanceFrequency(&number) == 0) return false;
  *high = number.u.HighPart;
  *low = number.u.LowPart;
  return true;
}

void counter_reading(int32_t *high, uint32_t *low) {
  LARGE_INTEGER number = {};
  QueryPerformanceCounter(&number);
  *high = number.u.HighPart;
  *low = number.u.LowPart;
}

uint32_t ticks() {
  return GetTickCount();
}

} // namespace

ClockSource clock_source = {counter_frequency, counter_reading, ticks};

uint32_t clock_thread() {
  return GetCurrentThreadId();
}

void clock_sleep(int32_t milliseconds) {
  Sleep(static_cast<DWORD>(milliseconds));
}

void clock_stamp(char stamp[clock_stamp_size]) {
  char date[32] = "";
  char time[16] = "";
  stamp[0] = '\0';
  if (GetDateFormatA(LOCALE_USER_DEFAULT, 0, nullptr, "yyyy-MMM-dd", date, sizeof date) == 0)
    return;
  if (GetTimeFormatA(LOCALE_USER_DEFAULT, TIME_FORCE24HOURFORMAT, nullptr, "HH:mm:ss", time,
                     sizeof time) == 0)
    return;
  std::snprintf(stamp, clock_stamp_size, "%s %s", date, time);
}
