#pragma once

#include <cstdio>
#include <string>

// Files that belong to the user: replaced whole or not at all.

// A file that is being written beside the one that it will replace.
struct FileReplacement {
  FILE *stream;          // where to write; null if it couldn't be opened
  std::string temporary; // beside the target
  std::string target;
};

// Opens a fresh file in the target's folder with fopen's `mode`. False, with errno, if that fails.
bool file_replace_begin(FileReplacement *file, const char *target, const char *mode);

// Brings what was written to the disk and then, in one step, to the target's place. False, with
// errno, if anything failed or `complete` is not set; the target is then as it was before.
bool file_replace_end(FileReplacement *file, bool complete);

// Renames a file to `stem`, "-N" and `ending` with the smallest N from 1 up that is free. Returns
// the new name, or an empty one, with errno, if it can't be renamed.
std::string file_set_aside(const char *path, const char *stem, const char *ending);

// What differs between systems.

// Hands what was written to the disk itself. False, with errno, on failure.
bool file_sync(FILE *stream);

// Makes a write beyond the system's limits fail, where it would otherwise end the program.
void file_survive_limits();
