#include "support/file.h"

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr int32_t most_links = 40;

// From UTF-8 on every system; a path takes plain characters for the system's own set.
fs::path path_of(const std::string &name) {
  return fs::path(std::u8string(name.begin(), name.end()));
}

std::string numbered(const std::string &stem, int32_t number, const char *ending) {
  return stem + "-" + std::to_string(number) + ending;
}

// What a chain of symbolic links leads to, though there may be nothing yet; the path itself if it
// is no link. A chain that goes round in a circle is left somewhere on it.
std::string behind_links(const char *path) {
  fs::path at = path_of(path);
  std::error_code error;
  for (int32_t links = 0; links < most_links && fs::is_symlink(at, error); links++)
    at = at.parent_path() / fs::read_symlink(at, error); // an absolute one replaces all
  return at.string();
}

// Whether a temporary is left over from a program that was killed: no save takes so long.
bool is_leftover(const std::string &name) {
  std::error_code error;
  const auto changed = fs::last_write_time(path_of(name), error);
  return !error && fs::is_regular_file(fs::symlink_status(path_of(name), error)) &&
         fs::file_time_type::clock::now() - changed > std::chrono::hours(1);
}

void remove_leftovers(const std::string &stem) {
  std::error_code ignored;
  for (int32_t number = 1; fs::exists(path_of(numbered(stem, number, "")), ignored); number++)
    if (is_leftover(numbered(stem, number, "")))
      fs::remove(path_of(numbered(stem, number, "")), ignored);
}

// Opens the first temporary name that no other program holds.
void open_exclusively(FileReplacement *file, bool text) {
  const std::string stem = file->target + ".new";
  remove_leftovers(stem);
  for (int32_t number = 1;; number++) {
    file->temporary = numbered(stem, number, "");
    file->stream = file_create(file->temporary, text);
    if (file->stream != nullptr || errno != EEXIST) return;
  }
}

// Whether the user has made a file that must not be written.
bool is_read_only(const std::string &name) {
  constexpr fs::perms writing =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code ignored;
  const fs::file_status status = fs::status(path_of(name), ignored);
  return fs::exists(status) && (status.permissions() & writing) == fs::perms::none;
}

} // namespace

FILE *file_open(const char *path) {
  std::error_code error;
  const fs::file_status status = fs::status(path_of(path), error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    errno = fs::is_directory(status) ? EISDIR : ENOTSUP;
    return nullptr;
  }
  return file_stream(path, "rb");
}

bool file_replace_begin(FileReplacement *file, const char *target, bool text) {
  file_survive_limits();
  file->target = behind_links(target);
  if (is_read_only(file->target)) {
    errno = EACCES;
    return false;
  }
  open_exclusively(file, text);
  return file->stream != nullptr;
}

bool file_replace_end(FileReplacement *file, bool complete) {
  bool done = complete && std::fflush(file->stream) == 0 && file_sync(file->stream);
  int cause = errno;
  const bool ours = file_is_at(file->stream, file->temporary);
  if (!ours) { // another program took it for a leftover, and may have its own there now
    done = false;
    cause = EBUSY;
  }
  if (std::fclose(file->stream) != 0 && done) {
    done = false;
    cause = errno;
  }
  file->stream = nullptr;
  std::error_code ignored; // a target that isn't there yet has no permissions
  const fs::file_status old = fs::status(path_of(file->target), ignored);
  if (done && fs::exists(old))
    fs::permissions(path_of(file->temporary), old.permissions(), ignored);
  if (done && file_rename(file->temporary, file->target)) return true;
  if (done) cause = errno;
  if (ours) fs::remove(path_of(file->temporary), ignored);
  errno = cause;
  return false;
}

std::string file_free_name(const char *stem, const char *ending) {
  for (int32_t number = 1;; number++) {
    const std::string name = numbered(stem, number, ending);
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(path_of(name), ignored))) return name;
  }
}
