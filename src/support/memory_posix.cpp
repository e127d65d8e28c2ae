#include "support/memory.h"

#include <cinttypes>
#include <cstdio>

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
