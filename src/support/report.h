#pragma once

#include <cstdint>

#include "support/clock.h"
#include "support/sentence.h"

// Failures and progress. All reports pass through report_inner, which keeps a stack of the running
// operations and passes each report to one replaceable output.

enum ReportType : int32_t {
  report_message = 1,  // replaces the top frame
  report_begin = 2,    // of an operation: replaces the top frame, then pushes a blank one
  report_end = 3,      // of an operation: pops the top frame, then blanks the one below
  report_progress = 4, // set on the top frame, only by report_set_progress
  report_error = 5,    // fatal: replaces the top frame, then the program ends with status 1
  report_warning = 6,  // pushed during its output
  report_question = 7, // pushed during its output; has an answer
};

struct report_frame {
  int32_t type;      // a ReportType; 0 in a blank frame
  const char *file;  // source name, not owned
  int32_t line;      // in that source
  uint32_t thread;   // number of the thread that reported
  char *text;        // null if there is none
  int32_t owns_text; // whether the frame frees the text
  double time;       // gfx_clock at the report, seconds
  double progress;   // done so far; 0 if none
  double progress_total;
  int32_t answer; // of a question: 1 for yes
};

// Where reports go; null for nowhere.
extern void (*report_handler)(report_frame *frame);

// Not 0: warnings don't wait for a key.
extern int32_t report_no_wait;

// What a platform does in its own way.
struct ReportHooks {
  void (*sleep)(int32_t milliseconds) = clock_sleep; // before a fatal report ends the program
  uint32_t (*thread)() = clock_thread;               // number of the running thread
};
void report_set_hooks(const ReportHooks &hooks);

// Makes a report of any type but report_progress and returns its answer. With `copy_text` the frame
// keeps a copy of the text; otherwise the text must outlive the frame. An unknown type and an end
// without a begin are fatal reports.
int32_t report_inner(const char *file, int32_t line, int32_t type, const char *text,
                     int32_t copy_text);

// Prints "\n[FATAL ERROR] %s\n" with `text` to the standard output, waits 2.5 seconds and ends the
// program with status 1. `source` and `line` say where the report comes from.
[[noreturn]] void report_fatal(const char *source, int32_t line, const char *text);

// Sets how far the operation of the top frame has come, and its total; 0 for unknown.
void report_set_progress(const char *file, int32_t line, double progress, double progress_total);

// The default report_handler: prints to the standard output. Warnings wait for a character on the
// standard input, questions for a word.
void report_print(report_frame *frame);

// Seconds since the first report.
double report_elapsed();
