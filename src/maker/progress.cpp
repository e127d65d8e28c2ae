#include "maker/progress.h"

#include <atomic>
#include <cinttypes>
#include <cstdio>

#include "support/alarm.h"
#include "support/file.h"

namespace {

constexpr double silent_time = 1.0; // seconds
constexpr int columns = 40;         // of the line, at most

// The alarm can interrupt the program while it prepares a line, so that is done in the other row.
struct Progress {
  char rows[2][columns + 8];
  std::atomic<const char *> line; // one of the rows; null: nothing to show
  std::atomic<bool> late;         // the silent time is over
  std::atomic<bool> shown;
  bool started;
};

Progress progress;

void write_line() {
  const char *line = progress.line;
  if (line == nullptr) return;
  progress.shown = true;
  stderr_write(line);
}

void on_alarm() {
  progress.late = true;
  write_line();
}

void start() {
  if (!progress.started) progress.late = !alarm_start(silent_time, on_alarm);
  progress.started = true;
}

} // namespace

void progress_show(const char *work, int64_t step, int64_t steps) {
  if (!file_is_terminal(stderr)) return;
  char text[columns];
  if (steps > 1)
    std::snprintf(text, sizeof text, "%s, %" PRId64 " of %" PRId64, work, step, steps);
  else
    std::snprintf(text, sizeof text, "%s", work);
  char *row = progress.rows[progress.line == progress.rows[0] ? 1 : 0];
  std::snprintf(row, sizeof progress.rows[0], "\r%-*s", columns, text);
  progress.line = row;
  start();
  if (progress.late) write_line();
}

void progress_end() {
  progress.line = nullptr;
  if (!progress.shown) return;
  char blank[columns + 8];
  std::snprintf(blank, sizeof blank, "\r%*s\r", columns, "");
  stderr_write(blank);
  progress.shown = false;
}
