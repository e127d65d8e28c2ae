#pragma once

#include <cstdint>

// One line on the standard error, if that is a terminal, about work that takes longer than a
// second. It appears in the middle of a long stage, too. Where the system has no alarms it is shown
// from the start.

// Begins a stage of the work, at `step` of so many `steps`; a single step is not shown.
void progress_show(const char *work, int64_t step = 1, int64_t steps = 1);

// Removes the line until the next stage. Call this before other output to the terminal.
void progress_end();
