#include "support/memory.h"

#include <cstdlib>
#include <new>

#include "support/report.h"

namespace {

constexpr size_t reserve_size = size_t{4} << 20; // the C library asks the system for 1 MiB at least

void *reserve;
bool ending;

} // namespace

void memory_begin() {
  reserve = std::malloc(reserve_size);
  std::set_new_handler(memory_exhausted);
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
  report_sentence("there is no memory left, so the program ends: close other programs and start it "
                  "again");
  std::exit(1);
}
