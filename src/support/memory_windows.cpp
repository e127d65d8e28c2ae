#include "support/memory.h"

#include <windows.h>

uint64_t memory_available() {
  MEMORYSTATUSEX status = {};
  status.dwLength = sizeof status;
  return GlobalMemoryStatusEx(&status) != 0 ? status.ullAvailPhys : UINT64_MAX;
}
