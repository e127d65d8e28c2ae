#include "measure.h"

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <map>
#include <regex>
#include <vector>

#include "support/memory.h"

namespace {

constexpr int repetitions = 9;
constexpr double run_milliseconds = 20.0;

struct Timed {
  Work work;
  int steps; // in a run
  std::vector<double> times;
};

std::map<std::string, std::vector<Timed>> rows; // by the part of the name before the slash

double time_of(const std::function<void()> &action, TimeKind kind) {
  const double start = measure_now(kind);
  action();
  return measure_now(kind) - start;
}

void run_steps(const Work &work, int steps, TimeKind kind, double *restoring) {
  for (int step = 0; step < steps; step++) {
    if (work.restore) *restoring += time_of(work.restore, kind);
    work.step();
  }
}

// Milliseconds per step.
double run(const Timed &timed, TimeKind kind) {
  const Work &work = timed.work;
  if (work.prepare) work.prepare();
  double restoring = 0.0;
  const double all = time_of([&] { run_steps(work, timed.steps, kind, &restoring); }, kind);
  if (work.finish) work.finish();
  return (all - restoring) / timed.steps;
}

// The first run warms up. If it is short, a second gives the number of steps that fill
// run_milliseconds.
void choose_steps(Timed &timed) {
  if (timed.work.is_once || run(timed, TimeKind::wall) > run_milliseconds) return;
  timed.steps = static_cast<int>(std::ceil(run_milliseconds / run(timed, TimeKind::wall)));
}

void measure_row(std::vector<Timed> &row) {
  for (Timed &timed : row)
    choose_steps(timed);
  for (int i = 0; i < repetitions; i++)
    for (Timed &timed : row)
      timed.times.push_back(run(timed, timed.work.kind));
  for (Timed &timed : row)
    std::printf("%s,%.6f\n", timed.work.name.c_str(), measure_median(timed.times));
  std::fflush(stdout);
}

} // namespace

double measure_now(TimeKind kind) {
  if (kind == TimeKind::cpu) return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
  const std::chrono::duration<double, std::milli> time =
      std::chrono::steady_clock::now().time_since_epoch();
  return time.count();
}

double measure_median(std::vector<double> &values) {
  const auto middle = values.begin() + static_cast<ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void measure_add(const Work &work) {
  rows[work.name.substr(0, work.name.find('/'))].push_back({work, 1, {}});
}

void measure_fresh_memory(size_t bytes) {
  malloc_trim(0);
  void *block = memory_try_block(bytes);
  if (block == nullptr) return;
  std::memset(block, 1, bytes);
  measure_keep(block);
  std::free(block);
}

void measure_all(int argc, char **argv) {
  const std::regex wanted(argc > 1 ? argv[1] : "");
  for (auto &[name, row] : rows) {
    std::erase_if(
        row, [&wanted](const Timed &timed) { return !std::regex_search(timed.work.name, wanted); });
    measure_row(row);
  }
}
