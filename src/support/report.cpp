#include "support/report.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "support/clock.h"

void (*report_sleep)(int32_t milliseconds) = clock_sleep;

void report_fatal(const char * /*source*/, int32_t /*line*/, const char *text) {
  std::printf("\n[FATAL ERROR] %s\n", text);
  std::fflush(stdout); // before the wait, which is there so that the text can be read
  report_sleep(2500);
  std::exit(1);
}

void report_sentence(const char *format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::fputs("vorel: ", stderr);
  std::vfprintf(stderr, format, arguments);
  std::fputc('\n', stderr);
  va_end(arguments);
}
