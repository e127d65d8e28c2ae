#pragma once

#include <cstddef>
#include <cstdio>

// Stores a copy of `text`, to be freed with std::free, in `slot` and returns its length. The old
// content of the slot is not freed.
size_t str_dup_into(char **slot, const char *text);

// The same, but frees the old content, of which `text` may be a part.
size_t string_assign(char **slot, const char *text);

// Lower case for the codes 'A' to 'Z' only, whatever the locale.
int ascii_lower(int c);

// Whether the character is a blank or one of tab to carriage return.
constexpr bool ascii_is_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

// Whether the character is one of 0 to 9.
constexpr bool ascii_is_digit(char c) {
  return c >= '0' && c <= '9';
}

// Whether two names are equal, ignoring the case of the letters A to Z.
bool ascii_equal_nocase(const char *a, const char *b);

// Whether `text` starts with `start`, ignoring the case of the letters A to Z.
bool ascii_starts_with_nocase(const char *text, const char *start);

// Reads a line that ends with LF, CR, CR LF, NUL or the end of the file. Returns it without the
// ending, to be freed with std::free; null at the end of the file. The stream must be seekable.
char *file_read_line(FILE *stream);

// Reads a string that ends with NUL, to be freed with std::free; null if the file ends before a
// NUL. The stream must be binary and seekable.
char *file_read_string(FILE *stream);

// The same, but null for an empty string.
char *file_read_string_or_null(FILE *stream);

// Writes the text and a NUL; null counts as empty.
void file_write_string(const char *text, FILE *stream);
