#include "support/sentence.h"

#include <cstddef>
#include <cstdio>

namespace {

struct SentenceOutput {
  const char *program = "vorel";
  void (*prepare)() = nullptr;
  void (*show)(const char *sentence) = nullptr;
};
SentenceOutput output;

} // namespace

std::string sentence_text(const char *format, std::va_list arguments) {
  std::va_list again;
  va_copy(again, arguments);
  std::string text(static_cast<size_t>(std::vsnprintf(nullptr, 0, format, arguments)), ' ');
  std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

// Needs no memory unless the sentence is shown, since it can be about the lack of it.
void report_sentence(const char *format, ...) {
  std::va_list arguments, again;
  va_start(arguments, format);
  va_copy(again, arguments);
  if (output.prepare != nullptr) output.prepare();
  std::fprintf(stderr, "%s: ", output.program);
  std::vfprintf(stderr, format, arguments);
  std::fputc('\n', stderr);
  if (output.show != nullptr) output.show(sentence_text(format, again).c_str());
  va_end(again);
  va_end(arguments);
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
