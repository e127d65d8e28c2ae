#include "support/report.h"

#include <cstdio>
#include <cstdlib>

#include "support/clock.h"
#include "support/list.h"
#include "support/strings.h"

void (*report_handler)(report_frame *frame) = report_print;
int32_t report_no_wait = 0;

namespace {

constexpr const char *source = "report";
constexpr int32_t fatal_wait = 2500; // milliseconds, for the user to read the text
constexpr int32_t line_empty_stack = 92;
constexpr int32_t line_unknown_type = 126;

GrowList report_stack; // of report_frame; its data is null before the first report

struct Reporting {
  double first = 0; // time of the first report, seconds
  ReportHooks hooks;
};
Reporting reporting;

report_frame *top_frame() {
  return &rows<report_frame>(report_stack)[report_stack.count - 1];
}

void push_blank() {
  const report_frame blank = {};
  GrowList_append(&report_stack, &blank);
}

// A warning may be pushed onto this frame, so it must not keep a dangling text.
void release_text(report_frame *frame) {
  if (frame->owns_text == 0) return;
  std::free(frame->text);
  frame->text = nullptr;
  frame->owns_text = 0;
}

void pop_frame() {
  release_text(top_frame());
  GrowList_remove(&report_stack, report_stack.count - 1);
}

int32_t handle_top() {
  if (report_handler != nullptr) report_handler(top_frame());
  return top_frame()->answer;
}

void start_stack() {
  if (report_stack.data != nullptr) return;
  GrowList_init(&report_stack, sizeof(report_frame));
  push_blank();
  reporting.first = gfx_clock();
}

void end_operation() {
  if (report_stack.count < 2)
    report_fatal(source, line_empty_stack, "Trying to pop empty stack in report_inner");
  pop_frame();
  top_frame()->type = report_end;
  handle_top();
  release_text(top_frame());
  *top_frame() = {};
}

void stamp(report_frame *frame, const char *file, int32_t line) {
  frame->file = file;
  frame->line = line;
  frame->thread = reporting.hooks.thread();
  frame->time = gfx_clock();
}

report_frame new_frame(const char *file, int32_t line, int32_t type, const char *text,
                       int32_t copy_text) {
  report_frame frame = {};
  frame.type = type;
  stamp(&frame, file, line);
  frame.text = const_cast<char *>(text); // released only if it is a copy
  if (copy_text != 0 && text != nullptr) {
    str_dup_into(&frame.text, text);
    frame.owns_text = 1;
  }
  return frame;
}

void print_progress(double progress, double total) {
  if (total > 0)
    std::printf(" [%lg/%lg]", progress, total);
  else if (progress > 0)
    std::printf(" [%lg]", progress);
}

int32_t report_ask_yes_no(const char *text) {
  std::printf("%s (Y/N) ", text);
  std::fflush(stdout);
  char word[32];
  if (std::scanf("%31s%*[^ \t\n]", word) < 1) return 0; // also skips the rest of a long word
  return ascii_lower(word[0]) == 'y' ? 1 : 0;
}

const char *text_of(const report_frame *frame) {
  return frame->text == nullptr ? "" : frame->text;
}

} // namespace

int32_t report_inner(const char *file, int32_t line, int32_t type, const char *text,
                     int32_t copy_text) {
  start_stack();
  if (type == report_end) {
    end_operation();
    return 0;
  }
  if (type < report_message || type > report_question || type == report_progress)
    report_fatal(source, line_unknown_type, "Unknown ReportType in report_inner");
  const report_frame frame = new_frame(file, line, type, text, copy_text);
  const bool passing = type == report_warning || type == report_question;
  release_text(top_frame());
  if (passing)
    GrowList_append(&report_stack, &frame);
  else
    *top_frame() = frame;
  const int32_t answer = handle_top();
  if (type == report_begin) push_blank();
  if (type == report_error) std::exit(1);
  if (passing) pop_frame();
  return answer;
}

void report_set_hooks(const ReportHooks &chosen) {
  reporting.hooks = chosen;
}

void report_fatal(const char *where, int32_t line, const char *text) {
  report_inner(where, line, report_error, text, 0);
  std::abort(); // not reached: the report ends the program
}

void report_set_progress(const char *file, int32_t line, double progress, double progress_total) {
  start_stack();
  report_frame *frame = top_frame();
  frame->type = report_progress;
  stamp(frame, file, line);
  frame->progress = progress;
  frame->progress_total = progress_total;
  handle_top();
}

void report_print(report_frame *frame) {
  switch (frame->type) {
  case report_error:
    std::printf("\n[FATAL ERROR] %s\n", text_of(frame));
    std::fflush(stdout);
    reporting.hooks.sleep(fatal_wait);
    break;
  case report_warning:
    std::printf("\n[WARNING] %s\nPress any key to continue program\n", text_of(frame));
    std::fflush(stdout);
    if (report_no_wait == 0) std::getchar();
    break;
  case report_question:
    frame->answer = report_ask_yes_no(text_of(frame));
    break;
  default:
    std::printf("%s", text_of(frame));
    print_progress(frame->progress, frame->progress_total);
    std::printf("\n");
  }
}

double report_elapsed() {
  return report_stack.data == nullptr ? 0.0 : gfx_clock() - reporting.first;
}
