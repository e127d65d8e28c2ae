// without_streams PROGRAM: starts a program without standard streams, as the desktop does, and ends
// with its status.
#include <windows.h>

int main(int, char **argv) {
  STARTUPINFOA start = {};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES; // no streams are given
  PROCESS_INFORMATION process;
  DWORD status = 2;
  if (CreateProcessA(argv[1], nullptr, nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr, nullptr,
                     &start, &process) == FALSE)
    return 2;
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &status);
  return static_cast<int>(status);
}
