#include "support/file.h"

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr int32_t max_links = 40;
constexpr const char *temporary_mark = ".new"; // between the target's name and the number

std::string numbered(const std::string &stem, int32_t number, const char *ending) {
  return stem + "-" + std::to_string(number) + ending;
}

// Resolves symbolic links; the last one may point to nothing. A circle of links gives one of them.
std::string resolve_links(const char *path) {
  fs::path at = file_path(path);
  std::error_code error;
  for (int32_t links = 0; links < max_links && fs::is_symlink(at, error); links++)
    at = at.parent_path() / fs::read_symlink(at, error); // an absolute target replaces all
  return file_utf8(at);
}

// Whether a temporary file is so old that its program must have been killed.
bool is_leftover(const std::string &name) {
  std::error_code error;
  const auto changed = fs::last_write_time(file_path(name), error);
  return !error && fs::is_regular_file(fs::symlink_status(file_path(name), error)) &&
         fs::file_time_type::clock::now() - changed > std::chrono::hours(1);
}

// Whether the name is the stem, "-", a number and the ending.
bool is_numbered(std::string_view name, std::string_view stem, std::string_view ending) {
  if (name.size() <= stem.size() + 1 + ending.size()) return false;
  const std::string_view middle =
      name.substr(stem.size(), name.size() - stem.size() - ending.size());
  return name.starts_with(stem) && name.ends_with(ending) && middle[0] == '-' &&
         middle.find_first_not_of("0123456789", 1) == std::string_view::npos;
}

// Calls visit(name) for all names in the folder of `stem`.
template <typename Visit> void each_name(const std::string &stem, const Visit &visit) {
  const fs::path folder = file_path(stem).parent_path();
  std::error_code error;
  fs::directory_iterator at(folder.empty() ? fs::path(".") : folder, error);
  for (; !error && at != fs::directory_iterator(); at.increment(error))
    visit(file_utf8(at->path().filename()));
}

// Creates a temporary file under the first name that is unused or a leftover's.
void open_exclusively(FileReplacement *file, bool text) {
  const std::string stem = file->target + temporary_mark;
  for (int32_t number = 1;; number++) {
    file->temporary = numbered(stem, number, "");
    if (file->flush == FileFlush::wait && is_leftover(file->temporary))
      file_remove(file->temporary);
    file->stream = file_create_new(file->temporary, text);
    if (file->stream != nullptr || errno != EEXIST) return;
  }
}

// The error of using something else as a regular file; 0 for one, or if there is nothing.
int kind_error(const fs::file_status &status) {
  if (!fs::exists(status) || fs::is_regular_file(status)) return 0;
  return fs::is_directory(status) ? EISDIR : ENOTSUP;
}

// Whether a file may be replaced, or does not exist. Otherwise false, with errno.
bool is_replaceable(const std::string &name) {
  constexpr fs::perms writing =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code ignored;
  const fs::file_status status = fs::status(file_path(name), ignored);
  errno = kind_error(status);
  if (errno == 0 && fs::exists(status) && (status.permissions() & writing) == fs::perms::none)
    errno = EACCES;
  return errno == 0;
}

} // namespace

// Not from a plain string, which is not UTF-8 on every system.
fs::path file_path(const std::string &name) {
  return fs::path(std::u8string(name.begin(), name.end()));
}

FILE *file_open(const char *path) {
  std::error_code error;
  const int cause = kind_error(fs::status(file_path(path), error));
  if (cause == 0) return file_fopen(path, "rb");
  errno = cause;
  return nullptr;
}

void file_close_read(FILE *stream) {
  const int cause = errno;
  std::fclose(stream);
  errno = cause;
}

long file_size(FILE *stream) {
  if (std::fseek(stream, 0, SEEK_END) != 0) return -1;
  const long size = std::ftell(stream);
  if (size < 0) errno = EFBIG; // where a long has 32 bits
  return std::fseek(stream, 0, SEEK_SET) == 0 ? size : -1;
}

bool file_replace_begin(FileReplacement *file, const char *target, bool text, FileFlush flush) {
  file->stream = nullptr;
  file->flush = flush;
  file_ignore_size_signal();
  file->target = resolve_links(target);
  if (!is_replaceable(file->target)) return false;
  open_exclusively(file, text);
  return file->stream != nullptr;
}

bool file_replace_end(FileReplacement *file, bool complete) {
  bool done = complete && std::fflush(file->stream) == 0 &&
              (file->flush == FileFlush::later || file_sync(file->stream));
  int cause = errno;
  const bool ours = file_is_same(file->stream, file->temporary);
  if (!ours && done) { // another program has removed it as a leftover
    done = false;
    cause = errno;
  }
  if (std::fclose(file->stream) != 0 && done) {
    done = false;
    cause = errno;
  }
  file->stream = nullptr;
  std::error_code ignored; // a new target has no permissions yet
  const fs::file_status old = fs::status(file_path(file->target), ignored);
  if (done && fs::exists(old))
    fs::permissions(file_path(file->temporary), old.permissions(), ignored);
  if (done && file_rename(file->temporary, file->target, file->flush)) return true;
  if (done) cause = errno;
  if (ours) fs::remove(file_path(file->temporary), ignored);
  errno = cause;
  return false;
}

bool file_close_written(FILE *stream, bool complete) {
  const bool written = complete && std::fflush(stream) == 0;
  const int cause = errno;
  const bool closed = std::fclose(stream) == 0;
  if (!written) errno = cause;
  return written && closed;
}

bool file_append_line(const char *path, const char *text) {
  FILE *file = file_fopen(path, "at");
  return file != nullptr && file_close_written(file, std::fprintf(file, "%s\n", text) >= 0);
}

bool file_name_is_taken(const std::string &name) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(file_path(name), ignored));
}

std::string file_unused_name(const std::string &stem, const char *ending) {
  for (int32_t number = 1;; number++) {
    std::string name = numbered(stem, number, ending);
    if (!file_name_is_taken(name)) return name;
  }
}

std::vector<std::string> file_numbered_names(const std::string &stem, const char *ending) {
  const std::string start = file_utf8(file_path(stem).filename());
  std::vector<std::string> names;
  each_name(stem, [&](const std::string &name) {
    if (is_numbered(name, start, ending)) names.push_back(stem + name.substr(start.size()));
  });
  return names;
}

std::string file_rename_unused(const std::string &name, const char *stem, const char *ending) {
  const std::string free_name = file_unused_name(stem, ending);
  return file_rename(name, free_name) ? free_name : std::string();
}

void file_remove_leftovers(const std::string &prefix) {
  const std::string start = file_utf8(file_path(prefix).filename());
  std::vector<std::string> names;
  each_name(prefix, [&](const std::string &name) {
    const size_t mark = name.rfind(temporary_mark);
    if (mark == std::string::npos || !name.starts_with(start)) return;
    const std::string target = name.substr(0, mark + std::strlen(temporary_mark));
    if (is_numbered(name, target, "")) names.push_back(prefix + name.substr(start.size()));
  });
  for (const std::string &name : names)
    if (is_leftover(name)) file_remove(name);
}

std::string file_data_folder() {
  const std::string root = file_data_root();
  if (root.empty()) return {};
  const fs::path folder = file_path(root) / "vorel";
  std::error_code error;
  fs::create_directories(folder, error);
  return fs::is_directory(folder, error) ? file_utf8(folder) : std::string();
}

std::string file_temporary_folder() {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  return error ? std::string() : file_utf8(folder);
}

bool file_remove(const std::string &name) {
  std::error_code error;
  fs::remove(file_path(name), error);
  return !error;
}
