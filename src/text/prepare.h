#pragma once

#include <cstddef>
#include <cstdint>

#include "text/control_sequence.h"

// Size in bytes of a buffer in which a text of `length` bytes, without its NUL, can be prepared by
// both functions below, in either order. In the worst case a marker without operand becomes two
// commands.
constexpr size_t text_prepare_room(size_t length) {
  return 2 * text_command_length * length + 1;
}

// Converts plain notation to control sequences, in place, in a buffer of `text_prepare_room`.
// Existing ones are kept; a truncated one at the end takes its missing bytes from those after the
// text's NUL, which must be 0.
//
// First, for any depth, names of Greek letters become wide codes, in any case and also inside a
// word: 256 to 279 for "alpha" to "omega", or 280 to 303 if the first letter is a capital, and 304
// to 308 for "vardelta", "varzeta", "vartheta", "varphi" and "varomega".
//
// Then "^" raises and "_" lowers what follows: a run of letters (A to Z), of digits or of wide
// codes, a group in braces, otherwise one byte or command; nothing at the end of a group or the
// text. The braces of a group are removed. A group without its closing brace extends to the end.
// `depth` is the maximum nesting of scripts: with 1, markers inside groups are kept as text; with 0
// or less, all are. Rises are clamped to 16 bits.
void text_prepare(char *text, int32_t depth);

// Converts "#col=" and "#tab=", in any case, and the decimal digits after them to commands of kind
// 0 and 1, in place, in a buffer of `text_prepare_room`. Removes a "#" that follows the digits. The
// value is stored as an int32, 0 without digits and at most INT32_MAX, although drawing reads the
// value of a tab as an f32. Forms are treated as above.
void text_prepare_tags(char *text);
