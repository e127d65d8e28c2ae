#pragma once

#include <cstddef>

// Memory that is always there: a program without memory can't go on, so its end is in one place.

// Sets a part of the memory aside for the end of the program, and makes `new` end it where there is
// no memory left.
void memory_begin();

// Blocks of that many bytes, which the caller releases with std::free; the second holds zeros. The
// program ends if there is no memory left.
void *memory_block(size_t bytes);
void *memory_zeroed(size_t bytes);

// What saves the user's work before the program ends; null for nothing.
extern void (*memory_save)();

// Releases what was set aside, saves the user's work, reports a sentence and ends the program with
// status 1 by std::exit. A call from inside of that, or after memory_forbid_exit, ends it at once.
[[noreturn]] void memory_exhausted();

// For code that runs inside std::exit, which must not be called twice.
void memory_forbid_exit();
