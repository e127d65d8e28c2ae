#pragma once

#include <cstddef>
#include <cstdint>

// Running out of memory ends the program, in one place. Only where a file names a size, or a save
// must go on without, is the failure handled instead: memory_try_block.

// Reserves 4 MiB for the end of the program. A `new` on this thread that fails then ends the
// program by memory_exhausted.
void memory_begin();

// Blocks of at least one byte, released with std::free. memory_zeroed fills its block with zeros,
// memory_try_block returns null if there is no memory.
void *memory_block(size_t bytes);
void *memory_zeroed(size_t bytes);
void *memory_try_block(size_t bytes);

// Bytes of memory that programs can still get without swapping; UINT64_MAX if unknown.
uint64_t memory_available();

// Sets the function that saves the user's work before the program ends; null for none.
void memory_set_save(void (*save)());

// Frees the reserve, saves the user's work, reports a sentence and ends the program with status 1
// by std::exit. A call during all that, or after memory_forbid_exit, ends it at once.
[[noreturn]] void memory_exhausted();

// Frees the reserve. From now on memory_exhausted ends the program at once. For functions of
// std::atexit: std::exit must not be called twice.
void memory_forbid_exit();

// Differs between systems. Asks for huge pages in a block, where whole ones fit.
void memory_prefer_huge_pages(void *block, size_t bytes);
