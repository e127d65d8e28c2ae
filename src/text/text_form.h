#pragma once

#include <cstddef>
#include <cstdint>

// Forms: sequences of fixed length in a text, each marked by its first byte. All other bytes are
// single characters.

constexpr uint8_t text_wide_first = 2;    // then the high and the low byte of a glyph's code
constexpr uint8_t text_command_first = 5; // then the kind and four bytes of value
constexpr uint8_t text_line_end = 10;     // a single byte

constexpr size_t text_wide_length = 3;
constexpr size_t text_command_length = 6;

// Kinds of commands; all others have no effect. Values are little-endian.
constexpr uint8_t text_kind_nothing = 0;
constexpr uint8_t text_kind_tab = 1;    // an f32: the pen's new x
constexpr uint8_t text_kind_script = 2; // a u16 size, then an i16 rise, both in 1/256

// Length in bytes of a form or character that begins with `first`: 1, 3 or 6.
inline size_t text_form_length(uint8_t first) {
  if (first == text_wide_first) return text_wide_length;
  return first == text_command_first ? text_command_length : 1;
}

// The glyph code of a wide form, from its first byte: 0 to 65535.
inline uint32_t text_wide_code(const uint8_t *form) {
  return form[1] * 256U + form[2];
}

// The NUL that ends a text. Forms may contain NULs, so it is found form by form. Forms must be
// complete: a truncated one looks like one that contains NULs, and would be read past the end.
inline const char *text_end_of(const char *text) {
  while (*text != '\0')
    text += text_form_length(static_cast<uint8_t>(*text));
  return text;
}
