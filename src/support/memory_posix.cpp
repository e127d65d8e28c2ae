#include "support/memory.h"

#include <cinttypes>
#include <cstdio>

#include <sys/mman.h>

#include "support/file.h"

uint64_t memory_available() {
  uint64_t kilobytes = UINT64_MAX / 1024;
  FILE *file = file_fopen("/proc/meminfo", "r");
  if (file == nullptr) return UINT64_MAX;
  char line[128];
  while (std::fgets(line, sizeof line, file) != nullptr)
    if (std::sscanf(line, "MemAvailable: %" SCNu64, &kilobytes) == 1) break;
  std::fclose(file);
  return kilobytes * 1024;
}

void memory_prefer_huge_pages(void *block, size_t bytes) {
  constexpr uintptr_t page = uintptr_t{2} << 20; // the usual size
  const uintptr_t address = reinterpret_cast<uintptr_t>(block);
  const uintptr_t first = (address + page - 1) / page * page, end = (address + bytes) / page * page;
  if (first < end)
    madvise(static_cast<char *>(block) + (first - address), end - first, MADV_HUGEPAGE);
}
