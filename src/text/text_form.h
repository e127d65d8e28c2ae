#pragma once

#include <cstddef>
#include <cstdint>

// Special bytes of a text, each the first of a form of fixed length. All other bytes stand alone.

constexpr uint8_t text_wide_first = 2;    // then the high and the low byte of a glyph's code
constexpr uint8_t text_command_first = 5; // then the kind and four bytes of value
constexpr uint8_t text_line_end = 10;     // stands alone

constexpr size_t text_wide_length = 3;
constexpr size_t text_command_length = 6;

// Kinds of commands; all others mean nothing. Values are little-endian.
constexpr uint8_t text_kind_nothing = 0;
constexpr uint8_t text_kind_tab = 1;    // an f32: the pen's new x
constexpr uint8_t text_kind_script = 2; // a u16 size, then an i16 rise, both in 1/256

// How many bytes a form has that begins with `first`: 1, 3 or 6.
inline size_t text_form_length(uint8_t first) {
  if (first == text_wide_first) return text_wide_length;
  return first == text_command_first ? text_command_length : 1;
}

// The glyph's code in a wide form, whose first byte `form` points to: 0 to 65535.
inline uint32_t text_wide_code(const uint8_t *form) {
  return form[1] * 256U + form[2];
}

// The NUL that ends a text. Forms may hold NULs, so it is found form by form, and they must be
// whole: one that the end cuts off looks the same as one with bytes of 0, and is read as such.
inline const char *text_end_of(const char *text) {
  while (*text != '\0')
    text += text_form_length(static_cast<uint8_t>(*text));
  return text;
}
