#pragma once

#include <cstdint>
#include <string>

// Runs a line of the system's shell and waits until it ends, for at most so many milliseconds; then
// it is ended with all that it has started. False in that case. How it went, if it could be started
// at all, is not told.
bool command_run(const std::string &line, int32_t limit);
