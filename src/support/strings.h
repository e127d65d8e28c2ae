#pragma once

#include <cstddef>
#include <cstdio>

// Stores an owned copy of `text` (released with free) in `slot` and returns its length. What the
// slot held before is not released.
size_t str_dup_into(char **slot, const char *text);

// Releases what the slot holds, if anything, and puts a fresh copy of `text` there, which may be
// the slot's own; returns its length.
size_t string_assign(char **slot, const char *text);

// Adds 32 to codes 'A' to 'Z' and leaves all others; no locale involved.
int ascii_lower(int c);

// Whether the character is white space, from tab to carriage return or a blank.
constexpr bool ascii_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

// Whether two names are equal without regard to the case of the letters A to Z.
bool ascii_equal(const char *a, const char *b);

// Whether `text` begins with `start`, without regard to the case of the letters A to Z.
bool ascii_begins(const char *text, const char *start);

// Reads a line, which LF, CR, CR LF, NUL or the end of the file ends, and goes past its ending; the
// caller frees the result, which is without it. Null at the end of the file. The stream must be
// able to seek.
char *file_read_line(FILE *stream);

// Reads up to and past the next NUL of a binary stream; the caller frees the result. Null at the
// end of the file, also when text without a NUL stands before it. The stream must be able to seek.
char *file_read_string(FILE *stream);

// The same, with an empty string released and returned as null.
char *file_read_string_or_null(FILE *stream);

// Writes the text and its NUL; a null `text` is written as a single NUL.
void file_write_string(const char *text, FILE *stream);
