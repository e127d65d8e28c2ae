#pragma once

#include <cstddef>
#include <cstdint>

// Control sequences in a text: each has a fixed length and is marked by its first byte. All other
// bytes are single characters.

constexpr uint8_t text_wide_first = 2;    // then the high and the low byte of a glyph's code
constexpr uint8_t text_command_first = 5; // then the kind and four bytes of value
constexpr uint8_t text_line_end = 10;     // a single byte

constexpr size_t text_wide_length = 3;
constexpr size_t text_command_length = 6;

// Kinds of commands; all others have no effect. Values are little-endian.
constexpr uint8_t text_kind_nothing = 0;
constexpr uint8_t text_kind_tab = 1;    // an f32: the pen's new x
constexpr uint8_t text_kind_script = 2; // a u16 size, then an i16 rise, both in 1/256

// Length in bytes of a control sequence or character that begins with `first`: 1, 3 or 6.
inline size_t text_item_length(uint8_t first) {
  if (first == text_wide_first) return text_wide_length;
  return first == text_command_first ? text_command_length : 1;
}

// The glyph's code in a sequence of text_wide_length bytes: 0 to 65535.
inline uint32_t text_wide_code(const uint8_t *sequence) {
  return sequence[1] * 256U + sequence[2];
}

// The NUL that ends a text. Control sequences may contain NULs, so they are skipped whole, and must
// be complete: a truncated one would be read past the end.
inline const char *text_end_of(const char *text) {
  while (*text != '\0')
    text += text_item_length(static_cast<uint8_t>(*text));
  return text;
}
