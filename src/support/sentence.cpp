#include "support/sentence.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <string>

namespace {

struct SentenceOutput {
  const char *program = "vorel";
  void (*prepare)() = nullptr;
  void (*show)(const char *sentence) = nullptr;
};
SentenceOutput output;

} // namespace

void report_sentence(const char *format, ...) {
  std::va_list arguments, again;
  va_start(arguments, format);
  va_copy(again, arguments);
  std::string sentence(static_cast<size_t>(std::vsnprintf(nullptr, 0, format, arguments)), ' ');
  std::vsnprintf(sentence.data(), sentence.size() + 1, format, again);
  va_end(again);
  va_end(arguments);
  if (output.prepare != nullptr) output.prepare();
  std::fprintf(stderr, "%s: %s\n", output.program, sentence.c_str());
  if (output.show != nullptr) output.show(sentence.c_str());
}

void report_set_program(const char *name) {
  output.program = name;
}

void report_set_prepare(void (*prepare)()) {
  output.prepare = prepare;
}

void report_set_show(void (*show)(const char *sentence)) {
  output.show = show;
}
