#pragma once

#include <string>

#include "maker/options.h"

// Sentences about the user's files, and the permission to replace them.

// Reports one sentence about a file on the standard error. Always false.
bool report_file_error(const std::string &path, const char *words, const char *cause);

// Whether the file may be written: it does not exist, or the options allow replacing it. Otherwise
// reports a sentence.
bool may_write(const Options &options, const std::string &path);
