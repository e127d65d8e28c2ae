#pragma once

#include <string>

#include "maker/options.h"

// Files that the program writes.

// Reports one sentence about a file on the standard error. Always false.
bool report_file_error(const std::string &path, const char *words, const char *cause);

// Whether the file may be written: it does not exist, or the options allow to replace it. Otherwise
// reports a sentence.
bool may_write(const Options &options, const std::string &path);
