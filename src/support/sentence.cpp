#include "support/sentence.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>

namespace {

constexpr size_t sentence_size = 1024;

struct SentenceOutput {
  const char *program = "vorel";
  void (*prepare)() = nullptr;
  void (*show)(const char *sentence) = nullptr;
};
SentenceOutput output;

} // namespace

void report_sentence(const char *format, ...) {
  char sentence[sentence_size];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(sentence, sizeof sentence, format, arguments);
  va_end(arguments);
  if (output.prepare != nullptr) output.prepare();
  std::fprintf(stderr, "%s: %s\n", output.program, sentence);
  if (output.show != nullptr) output.show(sentence);
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
