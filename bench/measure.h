#pragma once

#include <functional>
#include <string>

// Times alternatives by turns in one process.

// Something to be timed. The name is "ROW/WHO"; those of one row take turns.
struct Work {
  std::string name;
  std::function<void()> step;         // what is timed
  std::function<void()> prepare = {}; // before each run, not timed; may be empty
  std::function<void()> finish = {};  // after each run, not timed; may be empty
  bool is_once = false;               // a run is one step, not as many as fill a run's time
};

// What takes the time: this process with all its threads, or everything including waits.
enum class TimeKind { cpu, wall };

void measure_add(const Work &work);

// Measures all works, or those whose names match the regular expression in argv[1], and prints the
// median time of a step as "ROW/WHO,milliseconds".
void measure_all(int argc, char **argv, TimeKind kind);

// Lets the compiler assume that a result is read.
inline void measure_keep(const void *result) {
  asm volatile("" : : "g"(result) : "memory");
}
