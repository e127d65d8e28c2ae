#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

// The user's files, replaced whole or not at all. Names are UTF-8.

// Opens a regular file for binary reading. Null, with errno, on failure: ENOENT if there is none,
// EISDIR for a folder, ENOTSUP for anything that could block, such as a pipe.
FILE *file_open(const char *path);

// Closes a file that was only read; errno stays as it is.
void file_close_read(FILE *stream);

// Size in bytes of an open file, whose position goes to the start; -1, with errno, on failure.
long file_size(FILE *stream);

// Whether a write returns only when the data is on the disk, or leaves that to the system. In the
// latter case the data survives the end of the program, but not a power failure soon after.
enum class FileFlush { wait, later };

// A temporary file that will replace another one.
struct FileReplacement {
  FILE *stream;          // where to write
  std::string temporary; // its name, which no other program uses
  std::string target;    // with symbolic links resolved
  FileFlush flush;       // of file_replace_end
};

// Creates a temporary file in the target's folder, in text mode or not. False, with errno and a
// null stream, on failure, or if the target is read-only or no regular file. Replaces an old
// leftover of the same target. With FileFlush::later nothing is done that can take long.
bool file_replace_begin(FileReplacement *file, const char *target, bool text,
                        FileFlush flush = FileFlush::wait);

// Flushes the temporary file, gives it the target's permissions and renames it to the target.
// False, with errno, if anything failed; the target is then unchanged. Pass `complete` false, with
// errno set, if a write has failed before.
bool file_replace_end(FileReplacement *file, bool complete);

// Closes a file that was written. False, with errno of the first failure, if not everything was
// written. Pass `complete` false, with errno set, if a write has failed before.
bool file_close_written(FILE *stream, bool complete);

// Appends a line to a text file, which is created if it is missing. False, with errno, on failure.
bool file_append_line(const char *path, const char *text);

// `stem`, "-N" and `ending` with the smallest N from 1 that names no file.
std::string file_unused_name(const std::string &stem, const char *ending);

// The existing names of that form, in no particular order. Their numbers can have gaps.
std::vector<std::string> file_numbered_names(const std::string &stem, const char *ending);

// Renames a file to an unused name of that form and returns it; empty, with errno, on failure.
std::string file_rename_unused(const std::string &name, const char *stem, const char *ending);

// Removes temporary files that are more than an hour old, left by killed programs: those for all
// targets whose names start with `prefix`.
void file_remove_leftovers(const std::string &prefix);

// The folder for this program's data, which is created if needed; empty if there is none.
std::string file_data_folder();

// The folder for temporary files; empty if there is none.
std::string file_temporary_folder();

// Removes a file. True if it does not exist afterwards.
bool file_remove(const std::string &name);

// Whether the name is taken, also by a link that leads nowhere.
bool file_name_is_taken(const std::string &name);

// Tells one version of a file from another. Equal fields mean the same version of the same file, or
// that both are missing.
struct FileIdentity {
  uint64_t device, number; // of the file itself
  uint64_t size;           // bytes
  int64_t time;            // of the last change; unit and origin depend on the system
  bool exists;
  bool operator==(const FileIdentity &other) const = default;
};

// A name as a path. On Windows, a name that is not UTF-8 throws std::filesystem::filesystem_error.
std::filesystem::path file_path(const std::string &name);

// The functions below differ between systems.

// A path as a name. On Windows, U+FFFD replaces what is not valid UTF-16.
std::string file_utf8(const std::filesystem::path &path);

// The file with this name, with symbolic links resolved; all zero if there is none.
FileIdentity file_identity(const std::string &name);

// Takes an advisory lock on an existing file; it ends with the program at the latest. Null, with
// errno, on failure: EWOULDBLOCK if another program holds it, ENOENT if there is no file.
struct FileLock;
FileLock *file_lock(const std::string &name);

// Releases a lock; null is allowed. On some systems a locked file can't be renamed or replaced.
void file_unlock(FileLock *lock);

// std::fopen for a name in UTF-8.
FILE *file_fopen(const std::string &name, const char *mode);

// Creates a file and opens it for writing. Null, with errno, on failure: EEXIST if it exists.
FILE *file_create_new(const std::string &name, bool text);

// Renames a file, replacing one with the new name; FileFlush::wait also flushes the folder. False,
// with errno, on failure.
bool file_rename(const std::string &from, const std::string &to, FileFlush flush = FileFlush::wait);

// Waits until what was written is on the disk. False, with errno, on failure.
bool file_sync(FILE *stream);

// Makes the system start to write to the disk, without waiting.
void file_sync_begin(FILE *stream);

// The folder that holds this program's data folder; empty if there is none.
std::string file_data_root();

// Whether the open file has this name. False, with errno, if not or if that is unknown: EBUSY if
// the name is gone or belongs to another file.
bool file_is_same(FILE *stream, const std::string &name);

// Whether an open file is sparse, so that it can be far longer than what was written to it. False
// if the file system can't tell.
bool file_has_holes(FILE *stream);

// Whether a stream is shown on a terminal.
bool file_is_terminal(FILE *stream);

// Opens the null device as each standard stream that is closed. Otherwise the next file or
// connection would take their descriptors and receive the messages. Call this before anything else.
void file_open_standard_streams();

// Makes a write beyond the limit on file sizes fail, instead of ending the program.
void file_ignore_size_signal();
