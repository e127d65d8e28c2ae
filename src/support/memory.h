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

// Releases what was set aside, tells the user and ends the program with status 1, by std::exit, so
// that what is registered for the exit runs. Once more, in the course of that, it ends at once.
[[noreturn]] void memory_exhausted();
