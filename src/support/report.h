#pragma once

#include <cstdint>

// The one channel for failure and progress: reports go through report_inner, which keeps a stack of
// what is going on and hands each report to one replaceable output.

enum ReportType : int32_t {
  report_message = 1,  // replaces the top frame
  report_begin = 2,    // of a named operation: replaces the top frame and puts a blank one on it
  report_end = 3,      // of it: takes the top frame away and blanks the one beneath
  report_progress = 4, // set on the top frame by report_set_progress alone
  report_error = 5,    // fatal: replaces the top frame, then the program ends with status 1
  report_warning = 6,  // stands on the stack for the time of its output
  report_question = 7, // likewise; has an answer
};

struct report_frame {
  int32_t type;      // a ReportType; 0 in a blank frame
  const char *file;  // source name, not owned
  int32_t line;      // there
  uint32_t thread;   // which thread reported
  char *text;        // null if there is none
  int32_t owns_text; // whether the frame releases the text
  double time;       // gfx_clock at the report, seconds
  double progress;   // done so far; 0 if none
  double progress_total;
  int32_t answer; // of a question: 1 for yes
};

// Where reports go; null for nowhere.
extern void (*report_handler)(report_frame *frame);

// Whether warnings go on without a key.
extern int32_t report_no_wait;

// What a fatal report waits with, and what gives the number of the running thread; a platform with
// calls of its own, and tests, replace them.
extern void (*report_sleep)(int32_t milliseconds);
extern uint32_t (*report_thread)();

// Makes a report of one of the types but report_progress and returns its answer. With `copy_text`
// the text is a temporary of which a copy is kept; without, it must outlive its frame. An unknown
// type and an end without a begin are fatal reports.
int32_t report_inner(const char *file, int32_t line, int32_t type, const char *text,
                     int32_t copy_text);

// Prints "\n[FATAL ERROR] %s\n" with `text` to the standard output, waits 2.5 seconds and ends the
// program with status 1. `source` and `line` name the place that reports. Nothing is saved.
[[noreturn]] void report_fatal(const char *source, int32_t line, const char *text);

// Tells how far the operation of the top frame has come, and of how much; 0 for unknown.
void report_set_progress(const char *file, int32_t line, double progress, double progress_total);

// The output that report_handler starts with: words on the standard output; warnings wait for a
// character on the standard input, questions for a word.
void report_print(report_frame *frame);

// Seconds since the first report.
double report_elapsed();

// How many frames the stack has; 0 before the first report.
uint32_t report_depth();

// What sentences are also handed to, for users who don't see the standard error; null for nothing.
extern void (*report_tell)(const char *sentence);

// Tells the user one sentence on the standard error, after "vorel: ": what happened and what is
// missing. printf's format; up to 1023 characters.
[[gnu::format(printf, 1, 2)]] void report_sentence(const char *format, ...);
