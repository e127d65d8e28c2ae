#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// Times alternatives by turns in one process.

// What takes time: this process with all its threads, or everything with the waits.
enum class TimeKind { cpu, wall };

// Something to be timed. The name is "ROW/WHO"; those of one row take turns.
struct Work {
  std::string name;
  std::function<void()> step;         // what is timed
  std::function<void()> prepare = {}; // before each run, not timed; may be empty
  std::function<void()> finish = {};  // after each run, not timed; may be empty
  bool is_once = false;               // a run is one step, not as many as fill a run's time
  TimeKind kind = TimeKind::cpu;
  std::function<void()> restore = {}; // before each step, not timed; may be empty
};

// Milliseconds since some time in the past.
double measure_now(TimeKind kind);

// The middle one of at least one value. Reorders them.
double measure_median(std::vector<double> &values);

void measure_add(const Work &work);

// Measures all works, or those whose names match the regular expression in argv[1], and prints the
// median time of a step as "ROW/WHO,milliseconds".
void measure_all(int argc, char **argv);

// Returns freed memory to the system, so that the next steps take fresh pages. Then touches and
// frees `bytes`, untimed, so that a virtual machine has them back from its host.
void measure_fresh_memory(size_t bytes);

// Lets the compiler assume that a result is read.
inline void measure_keep(const void *result) {
  asm volatile("" : : "g"(result) : "memory");
}
