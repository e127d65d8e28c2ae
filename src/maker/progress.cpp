#include "maker/progress.h"

#include <cinttypes>
#include <cstdio>

#include "support/clock.h"
#include "support/file.h"

namespace {

constexpr double silent_time = 1.0; // seconds

double start = -1.0;
bool shown;

} // namespace

void progress_show(const char *work, int64_t step, int64_t steps) {
  if (start < 0) start = gfx_clock();
  if (!file_is_terminal(stderr) || gfx_clock() - start < silent_time) return;
  std::fprintf(stderr, "\r\33[K%s", work);
  if (steps > 0) std::fprintf(stderr, ", %" PRId64 " of %" PRId64, step, steps);
  std::fflush(stderr);
  shown = true;
}

void progress_end() {
  if (shown) std::fputs("\r\33[K", stderr);
  shown = false;
}
