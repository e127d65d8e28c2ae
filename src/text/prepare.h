#pragma once

#include <cstddef>
#include <cstdint>

#include "text/text_form.h"

// Bytes of a buffer in which a text of `length` bytes, its NUL not counted, can be prepared by both
// functions below, in either order: a marker without operand becomes two commands, and nothing
// grows by more.
constexpr size_t text_prepare_room(size_t length) {
  return 2 * text_command_length * length + 1;
}

// Turns plain notation into forms, in place, in a buffer of `text_prepare_room`. Forms that are
// there already stay as they are; one that the end cuts off is filled from the five bytes behind
// the text's NUL, which must be 0 then. First, whatever the depth, each name of a Greek letter, in
// any case and also inside a word, becomes its wide code: 256 to 279 for "alpha" to "omega", 280 to
// 303 if its first letter is a capital; 304 to 308 for "vardelta", "varzeta", "vartheta", "varphi"
// and "varomega". Then "^" raises and "_" lowers what follows: a run of letters (A to Z), of digits
// or of wide codes, a group in braces, or else one byte or command; nothing at the end of a group
// or the text. The braces of a group vanish. `depth` is how many levels of scripts are made: with
// 1, markers inside groups stay as they are; with 0 or less, all do. A group without its closing
// brace reaches to the end. Rises stay within 16 bits.
void text_prepare(char *text, int32_t depth);

// Turns "#col=" and "#tab=", in any case, with the decimal digits behind them, into commands of
// kind 0 and 1, in place, in a buffer of `text_prepare_room`. A "#" right behind the digits goes
// with them. The value is stored as an int32, 0 without digits and at most INT32_MAX, although
// drawing takes a tab's value for an f32. Forms are treated as above.
void text_prepare_tags(char *text);
