#include "support/memory.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include <sys/mman.h>

#include "support/file.h"

namespace {

// The number in a file; UINT64_MAX if there is none.
uint64_t number_in(const char *path) {
  uint64_t number = UINT64_MAX;
  FILE *file = file_fopen(path, "r");
  if (file == nullptr) return number;
  if (std::fscanf(file, "%" SCNu64, &number) != 1) number = UINT64_MAX;
  std::fclose(file);
  return number;
}

// What the limit of a container leaves.
uint64_t container_available() {
  const uint64_t limit = number_in("/sys/fs/cgroup/memory.max");
  const uint64_t used = number_in("/sys/fs/cgroup/memory.current");
  return limit == UINT64_MAX || used == UINT64_MAX ? UINT64_MAX : limit - std::min(used, limit);
}

} // namespace

uint64_t memory_available() {
  uint64_t kilobytes = UINT64_MAX / 1024;
  FILE *file = file_fopen("/proc/meminfo", "r");
  if (file == nullptr) return UINT64_MAX;
  char line[128];
  while (std::fgets(line, sizeof line, file) != nullptr)
    if (std::sscanf(line, "MemAvailable: %" SCNu64, &kilobytes) == 1) break;
  std::fclose(file);
  return std::min(kilobytes * 1024, container_available());
}

void memory_prefer_huge_pages(void *block, size_t bytes) {
  constexpr uintptr_t page = uintptr_t{2} << 20; // the usual size
  const uintptr_t address = reinterpret_cast<uintptr_t>(block);
  const uintptr_t first = (address + page - 1) / page * page, end = (address + bytes) / page * page;
  if (first < end)
    madvise(static_cast<char *>(block) + (first - address), end - first, MADV_HUGEPAGE);
}
