#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

// Files that belong to the user: replaced whole or not at all. Names are UTF-8.

// Opens a plain file for binary reading. Null, with errno, if it can't be: ENOENT if there is none,
// EISDIR for a folder, ENOTSUP for what could keep the program waiting, such as a pipe.
FILE *file_open(const char *path);

// Whether a call returns only when the disk has the data, or leaves that to the system. Data that
// was left to it survives the end of the program, but not a loss of power in the next seconds.
enum class FileFlush { wait, later };

// A file that is being written beside the one that it will replace.
struct FileReplacement {
  FILE *stream;          // where to write
  std::string temporary; // of this program alone
  std::string target;    // behind any symbolic link
  FileFlush flush;       // at the end
};

// Opens a fresh file in the target's folder, in text mode or not. False, with errno, if that fails
// or the user has made the target read-only.
// With FileFlush::later nothing is done that can take long, such as a search for leftovers.
bool file_replace_begin(FileReplacement *file, const char *target, bool text,
                        FileFlush flush = FileFlush::wait);

// Brings what was written to the disk and then, in one step and with the target's permissions, to
// the target's place. False, with errno, if anything failed or `complete` is not set, which is for
// a failure that errno tells already; the target is then as it was before.
bool file_replace_end(FileReplacement *file, bool complete);

// Closes a file that was written. False, with errno of the first failure, if not all of it reached
// the file or `complete` is not set, which is for a failure that errno tells already.
bool file_close_written(FILE *stream, bool complete);

// Appends a line of text to a file, which is made if there is none. False, with errno, on failure.
bool file_append_line(const char *path, const char *text);

// `stem`, "-N" and `ending` with the smallest N from 1 up that no file has.
std::string file_free_name(const std::string &stem, const char *ending);

// The names of that form that files have, in no particular order; gaps in the numbers are allowed.
std::vector<std::string> file_numbered_names(const std::string &stem, const char *ending);

// Gives a file a name of that form that no file has, which is returned; empty, with errno, if it
// can't be renamed.
std::string file_rename_free(const std::string &name, const char *stem, const char *ending);

// Removes temporary files that killed programs left behind more than an hour ago: those for targets
// whose names begin with `prefix`. Their numbers can have gaps.
void file_remove_leftovers(const std::string &prefix);

// The folder for the user's data of this program, which is made if it is not there; empty if there
// is none. And the one for temporary files.
std::string file_data_folder();
std::string file_temporary_folder();

// Removes a file. True if it is no longer there.
bool file_remove(const std::string &name);

// What tells one version of a file from another. Two files with equal fields are the same, unless
// both are missing.
struct FileIdentity {
  uint64_t device, number; // of the file itself
  uint64_t size;           // bytes
  int64_t time;            // of the last change; units and origin are the system's
  bool exists;
  bool operator==(const FileIdentity &other) const = default;
};

// What differs between systems.

// The file under this name, behind any symbolic link; zero if there is none.
FileIdentity file_identity(const std::string &name);

// An advisory lock on the file under this name, which ends with the program at the latest. Null,
// with errno, if it can't be had: EWOULDBLOCK if another program has it, ENOENT if there is no
// file.
struct FileLock;
FileLock *file_lock(const std::string &name);

// Ends a lock; null is allowed. On some systems a locked file can't be renamed or replaced.
void file_unlock(FileLock *lock);

// A path in UTF-8; what can't be converted becomes a mark.
std::string file_utf8(const std::filesystem::path &path);

// Opens a file by its name in UTF-8, as std::fopen does. Null, with errno, if it can't be.
FILE *file_stream(const std::string &name, const char *mode);

// Makes a file that was not there and opens it for writing. Null, with errno, if it can't be:
// EEXIST if there is one.
FILE *file_create(const std::string &name, bool text);

// Renames a file, over one that has the name, and flushes the folder. False, with errno, if it
// can't be renamed.
bool file_rename(const std::string &from, const std::string &to, FileFlush flush = FileFlush::wait);

// Hands what was written to the disk itself. False, with errno, on failure.
bool file_sync(FILE *stream);

// Makes the system begin to do so, without waiting.
void file_sync_begin(FILE *stream);

// The parent of this program's data folder, as the user's settings have it; empty if there is none.
std::string file_data_root();

// Whether the open file is the one of this name. False, with errno, if it isn't or that can't be
// told: EBUSY if the name is gone or another file's.
bool file_is_at(FILE *stream, const std::string &name);

// Whether parts of the open file have no place on the disk, so that it can be far longer than what
// was ever written. False where the file system can't tell.
bool file_has_holes(FILE *stream);

// Opens the standard streams that the program was started without on the null device: the next
// files and connections would take their descriptors, and get what is meant for the user. To be
// called first of all.
void file_open_standard_streams();

// From here on, for the whole process, makes a write beyond the system's limits fail, where it
// would otherwise end the program.
void file_survive_limits();
