#pragma once

#include <cstdio>
#include <string>

// Files that belong to the user: replaced whole or not at all. Names are UTF-8.

// Opens a plain file for binary reading. Null, with errno, if it can't be: ENOENT if there is none,
// EISDIR for a folder, ENOTSUP for what could keep the program waiting, such as a pipe.
FILE *file_open(const char *path);

// A file that is being written beside the one that it will replace.
struct FileReplacement {
  FILE *stream;          // where to write
  std::string temporary; // of this program alone
  std::string target;    // behind any symbolic link
};

// Opens a fresh file in the target's folder, in text mode or not. False, with errno, if that fails
// or the user has made the target read-only.
bool file_replace_begin(FileReplacement *file, const char *target, bool text);

// Brings what was written to the disk and then, in one step and with the target's permissions, to
// the target's place. False, with errno, if anything failed or `complete` is not set, which is for
// a failure that errno tells already; the target is then as it was before.
bool file_replace_end(FileReplacement *file, bool complete);

// `stem`, "-N" and `ending` with the smallest N from 1 up that no file has.
std::string file_free_name(const char *stem, const char *ending);

// What differs between systems.

// Opens a file by its name in UTF-8, as std::fopen does. Null, with errno, if it can't be.
FILE *file_stream(const std::string &name, const char *mode);

// Makes a file that was not there and opens it for writing. Null, with errno, if it can't be:
// EEXIST if there is one.
FILE *file_create(const std::string &name, bool text);

// Renames a file, over one that has the name. False, with errno, if it can't be.
bool file_rename(const std::string &from, const std::string &to);

// Hands what was written to the disk itself. False, with errno, on failure.
bool file_sync(FILE *stream);

// Whether the open file is the one that stands under this name.
bool file_is_at(FILE *stream, const std::string &name);

// From here on, for the whole process, makes a write beyond the system's limits fail, where it
// would otherwise end the program.
void file_survive_limits();
