#pragma once

#include <cstdint>
#include <string>

// Runs a shell command. Returns false if it was killed, with its process group, after `limit_ms`
// milliseconds. Its exit status is ignored.
bool command_run(const std::string &line, int32_t limit_ms);
