#include "support/strings.h"

#include <cstdlib>
#include <cstring>

#include "support/memory.h"

namespace {

// Reads up to and past a NUL or one of the characters in `ends`; `ending` gets that character, or
// EOF. The caller frees the text, which is without it.
char *read_until(FILE *stream, const char *ends, int *ending) {
  std::fpos_t start;
  std::fgetpos(stream, &start);
  size_t length = 0;
  // strchr also finds the NUL at the end of `ends`.
  for (int c = std::fgetc(stream); c != EOF && std::strchr(ends, c) == nullptr;
       c = std::fgetc(stream))
    length++;
  char *text = static_cast<char *>(memory_block(length + 1));
  std::fsetpos(stream, &start);
  text[std::fread(text, 1, length, stream)] = '\0';
  *ending = std::fgetc(stream);
  return text;
}

} // namespace

size_t str_dup_into(char **slot, const char *text) {
  const size_t length = std::strlen(text);
  *slot = static_cast<char *>(memory_block(length + 1));
  std::memcpy(*slot, text, length + 1);
  return length;
}

size_t string_assign(char **slot, const char *text) {
  char *old = *slot;
  const size_t length = str_dup_into(slot, text);
  std::free(old); // after the copy, since `text` may be a part of it
  return length;
}

int ascii_lower(int c) {
  return c >= 'A' && c <= 'Z' ? c + 32 : c;
}

bool ascii_equal_nocase(const char *a, const char *b) {
  while (*a != '\0' && ascii_lower(*a) == ascii_lower(*b)) {
    a++;
    b++;
  }
  return ascii_lower(*a) == ascii_lower(*b);
}

bool ascii_starts_with_nocase(const char *text, const char *start) {
  while (*start != '\0' && ascii_lower(*text) == ascii_lower(*start)) {
    text++;
    start++;
  }
  return *start == '\0';
}

char *file_read_line(FILE *stream) {
  int ending;
  char *line = read_until(stream, "\n\r", &ending);
  if (ending == EOF && *line == '\0') {
    std::free(line);
    return nullptr;
  }
  const int next = ending == '\r' ? std::fgetc(stream) : EOF;
  if (next != '\n' && next != EOF) std::ungetc(next, stream);
  return line;
}

char *file_read_string(FILE *stream) {
  int ending;
  char *text = read_until(stream, "", &ending);
  if (ending != EOF) return text;
  std::free(text);
  return nullptr;
}

char *file_read_string_or_null(FILE *stream) {
  char *text = file_read_string(stream);
  if (text == nullptr || *text != '\0') return text;
  std::free(text);
  return nullptr;
}

void file_write_string(const char *text, FILE *stream) {
  const char *shown = text == nullptr ? "" : text;
  std::fwrite(shown, 1, std::strlen(shown) + 1, stream);
}
