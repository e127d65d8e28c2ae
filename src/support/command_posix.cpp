#include "support/command.h"

#include <chrono>
#include <csignal>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/clock.h"

namespace {

constexpr int32_t poll_interval = 10; // milliseconds
constexpr int32_t kill_wait = 1000;   // milliseconds for a killed process to end

bool ends_within(pid_t child, int32_t limit_ms) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limit_ms);
  while (waitpid(child, nullptr, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() >= end) return false;
    clock_sleep(poll_interval);
  }
  return true;
}

// Starts the shell in its own process group, without the terminal as input: a background group that
// reads from the terminal is stopped. False if it can't be started.
bool start_shell(std::string line, pid_t *child) {
  char name[] = "sh";
  char option[] = "-c";
  char *const arguments[] = {name, option, line.data(), nullptr};
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
  sigset_t ignored_here;
  sigemptyset(&ignored_here);
  sigaddset(&ignored_here, SIGPIPE);
  sigaddset(&ignored_here, SIGXFSZ);
  posix_spawnattr_setsigdefault(&attributes, &ignored_here);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  const int fault = posix_spawn(child, "/bin/sh", &actions, &attributes, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  return fault == 0;
}

} // namespace

bool command_run(const std::string &line, int32_t limit_ms) {
  pid_t child = 0;
  if (!start_shell(line, &child) || ends_within(child, limit_ms)) return true;
  kill(-child, SIGKILL);
  ends_within(child, kill_wait);
  return false;
}
