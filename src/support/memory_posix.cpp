#include "support/memory.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstring>

#include <sys/mman.h>

#include "support/file.h"

namespace {

// The number that follows `name` at the start of a line; `missing` if there is no such file or
// line.
uint64_t number_after(const char *path, const char *name, uint64_t missing) {
  uint64_t number = missing;
  FILE *file = file_fopen(path, "r");
  if (file == nullptr) return missing;
  const size_t length = std::strlen(name);
  char line[128];
  while (std::fgets(line, sizeof line, file) != nullptr)
    if (std::strncmp(line, name, length) == 0 &&
        std::sscanf(line + length, "%" SCNu64, &number) == 1)
      break;
  std::fclose(file);
  return number;
}

// What the limit of a container (with version 2 of control groups) leaves. The system can take back
// the memory of cached files.
uint64_t container_available() {
  const uint64_t limit = number_after("/sys/fs/cgroup/memory.max", "", UINT64_MAX);
  const uint64_t used = number_after("/sys/fs/cgroup/memory.current", "", 0);
  const uint64_t cached = number_after("/sys/fs/cgroup/memory.stat", "active_file ", 0) +
                          number_after("/sys/fs/cgroup/memory.stat", "inactive_file ", 0);
  return limit - std::min(limit, used - std::min(used, cached));
}

} // namespace

uint64_t memory_available() {
  const uint64_t kilobytes = number_after("/proc/meminfo", "MemAvailable:", UINT64_MAX / 1024);
  return std::min(kilobytes * 1024, container_available());
}

void memory_prefer_huge_pages(void *block, size_t bytes) {
  constexpr uintptr_t page = uintptr_t{2} << 20; // the usual size
  const uintptr_t address = reinterpret_cast<uintptr_t>(block);
  const uintptr_t first = (address + page - 1) / page * page, end = (address + bytes) / page * page;
  if (first < end)
    madvise(static_cast<char *>(block) + (first - address), end - first, MADV_HUGEPAGE);
}
