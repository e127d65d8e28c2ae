#pragma once

#include <cstdint>

// One line on the standard error, if that is a terminal, about work that takes longer than a
// second.

// Shows what is being done, and which of how many steps; 0 of 0 shows no steps.
void progress_show(const char *work, int64_t step, int64_t steps);

// Removes the line.
void progress_end();
