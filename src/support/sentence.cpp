#include "support/sentence.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>

namespace {

constexpr size_t sentence_size = 1024;

void (*show_sentence)(const char *sentence);

} // namespace

void report_sentence(const char *format, ...) {
  char sentence[sentence_size];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(sentence, sizeof sentence, format, arguments);
  va_end(arguments);
  std::fprintf(stderr, "vorel: %s\n", sentence);
  if (show_sentence != nullptr) show_sentence(sentence);
}

void report_set_show(void (*show)(const char *sentence)) {
  show_sentence = show;
}
