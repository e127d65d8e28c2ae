#include "support/memory.h"

#include <cstdlib>
#include <new>

#include "support/clock.h"
#include "support/report.h"

namespace {

constexpr size_t reserve_size = size_t{4} << 20; // bytes; freed for the ending

void *reserve;
bool ending;
uint32_t main_thread;

// Threads of the graphics driver get an error instead: they can't save, and the tree isn't theirs.
void new_failed() {
  if (clock_thread() == main_thread) memory_exhausted();
  std::set_new_handler(nullptr);
}

} // namespace

void (*memory_save)() = nullptr;

void memory_begin() {
  reserve = std::malloc(reserve_size);
  main_thread = clock_thread();
  std::set_new_handler(new_failed);
}

void *memory_block(size_t bytes) {
  void *block = std::malloc(bytes > 0 ? bytes : 1);
  if (block == nullptr) memory_exhausted();
  return block;
}

void *memory_zeroed(size_t bytes) {
  void *block = std::calloc(bytes > 0 ? bytes : 1, 1);
  if (block == nullptr) memory_exhausted();
  return block;
}

void memory_exhausted() {
  if (ending) std::_Exit(1);
  ending = true;
  std::free(reserve);
  if (memory_save != nullptr) memory_save();
  report_sentence("there is no memory left, so the program ends: close other programs and start it "
                  "again");
  std::exit(1);
}

void memory_forbid_exit() {
  std::free(ending ? nullptr : reserve);
  ending = true;
}
