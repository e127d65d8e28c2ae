#include "support/memory.h"

#include <windows.h>

uint64_t memory_available() {
  MEMORYSTATUSEX status = {};
  status.dwLength = sizeof status;
  return GlobalMemoryStatusEx(&status) != 0 ? status.ullAvailPhys : UINT64_MAX;
}

// Here a program needs a privilege for them.
void memory_prefer_huge_pages(void *, size_t) {}
