#include "support/command.h"

#include <cstdlib>

#include <windows.h>

// The job contains everything that the shell starts. The shell is created suspended, so that
// nothing starts outside the job.
bool command_run(const std::string &line, int32_t limit_ms) {
  const char *shell = std::getenv("COMSPEC");
  std::string words = std::string(shell != nullptr ? shell : "cmd.exe") + " /c " + line;
  STARTUPINFOA start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION child = {};
  // A console window would take the focus, and minimise Vorel in fullscreen.
  constexpr DWORD how = CREATE_SUSPENDED | CREATE_NO_WINDOW;
  if (CreateProcessA(nullptr, words.data(), nullptr, nullptr, TRUE, how, nullptr, nullptr, &start,
                     &child) == FALSE)
    return true;
  const HANDLE job = CreateJobObjectA(nullptr, nullptr);
  const bool held = AssignProcessToJobObject(job, child.hProcess) != FALSE;
  ResumeThread(child.hThread);
  const bool ended =
      WaitForSingleObject(child.hProcess, static_cast<DWORD>(limit_ms)) != WAIT_TIMEOUT;
  if (!ended && !(held && TerminateJobObject(job, 1) != FALSE)) TerminateProcess(child.hProcess, 1);
  for (const HANDLE handle : {job, child.hThread, child.hProcess})
    CloseHandle(handle);
  return ended;
}
