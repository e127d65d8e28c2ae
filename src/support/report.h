#pragma once

#include <cstdint>

// Prints "\n[FATAL ERROR] %s\n" with `text` to the standard output, waits 2.5 seconds and ends the
// program with status 1. `source` and `line` name the place that reports. Nothing is saved.
[[noreturn]] void report_fatal(const char *source, int32_t line, const char *text);

// Tells the user one sentence on the standard error, after "vorel: ": what happened and what is
// missing. printf's format.
[[gnu::format(printf, 1, 2)]] void report_sentence(const char *format, ...);

// What report_fatal waits with; tests replace it.
extern void (*report_sleep)(int32_t milliseconds);
