#include "support/alarm.h"

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstring>

#include <sys/time.h>
#include <unistd.h>

namespace {

void (*ring_function)();

// The interrupted function must not see another errno.
void on_alarm(int) {
  const int error = errno;
  ring_function();
  errno = error;
}

} // namespace

bool alarm_start(double seconds, void (*ring)()) {
  ring_function = ring;
  struct sigaction action = {};
  action.sa_handler = on_alarm;
  action.sa_flags = SA_RESTART; // reads and writes go on
  if (sigaction(SIGALRM, &action, nullptr) != 0) return false;
  itimerval timer = {};
  timer.it_value.tv_sec = static_cast<time_t>(seconds);
  timer.it_value.tv_usec = static_cast<suseconds_t>(1e6 * (seconds - std::floor(seconds)));
  return setitimer(ITIMER_REAL, &timer, nullptr) == 0;
}

void stderr_write(const char *text) {
  const ssize_t written = write(STDERR_FILENO, text, std::strlen(text));
  static_cast<void>(written); // nothing can be done about a failure
}
