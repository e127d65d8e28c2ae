#include "support/memory.h"

#include <cstdlib>
#include <new>

#include "support/clock.h"
#include "support/sentence.h"

namespace {

constexpr size_t reserve_size = size_t{4} << 20; // bytes
constexpr size_t huge_size = size_t{4} << 20;    // from which huge pages save page faults

struct ExitState {
  void *reserve; // released before the work is saved
  bool exiting;
  uint32_t main_thread;
  void (*save_work)();
};
ExitState exit_state;

// Other threads, which are the graphics driver's, get an exception: they must not save the session.
void new_failed() {
  if (clock_thread() == exit_state.main_thread) memory_exhausted();
  throw std::bad_alloc();
}

} // namespace

void memory_begin() {
  exit_state.reserve = std::malloc(reserve_size);
  exit_state.main_thread = clock_thread();
  std::set_new_handler(new_failed);
}

void *memory_block(size_t bytes) {
  void *block = memory_try_block(bytes);
  if (block == nullptr) memory_exhausted();
  return block;
}

void *memory_zeroed(size_t bytes) {
  void *block = std::calloc(bytes > 0 ? bytes : 1, 1);
  if (block == nullptr) memory_exhausted();
  return block;
}

void *memory_try_block(size_t bytes) {
  void *block = std::malloc(bytes > 0 ? bytes : 1);
  if (block != nullptr && bytes >= huge_size) memory_prefer_huge_pages(block, bytes);
  return block;
}

void memory_set_save(void (*save)()) {
  exit_state.save_work = save;
}

void memory_exhausted() {
  if (exit_state.exiting) std::_Exit(1);
  exit_state.exiting = true;
  std::free(exit_state.reserve);
  if (exit_state.save_work != nullptr) exit_state.save_work();
  report_sentence("there is no memory left, so the program ends: close other programs and start it "
                  "again");
  std::exit(1);
}

void memory_forbid_exit() {
  std::free(exit_state.exiting ? nullptr : exit_state.reserve);
  exit_state.exiting = true;
}
