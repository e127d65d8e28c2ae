#include "support/file.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <system_error>

bool file_replace_begin(FileReplacement *file, const char *target, const char *mode) {
  file_survive_limits();
  file->target = target;
  file->temporary = file->target + ".new";
  file->stream = std::fopen(file->temporary.c_str(), mode);
  return file->stream != nullptr;
}

bool file_replace_end(FileReplacement *file, bool complete) {
  bool done = complete && std::fflush(file->stream) == 0 && file_sync(file->stream);
  int cause = errno;
  if (std::fclose(file->stream) != 0 && done) {
    done = false;
    cause = errno;
  }
  file->stream = nullptr;
  if (done) {
    // Unlike the C function, this one replaces the target on every system.
    std::error_code error;
    std::filesystem::rename(file->temporary, file->target, error);
    if (!error) return true;
    cause = error.value();
  }
  std::remove(file->temporary.c_str());
  errno = cause;
  return false;
}

std::string file_set_aside(const char *path, const char *stem, const char *ending) {
  for (int32_t number = 1;; number++) {
    const std::string name = std::string(stem) + "-" + std::to_string(number) + ending;
    std::error_code error;
    if (std::filesystem::exists(std::filesystem::symlink_status(name, error))) continue;
    std::filesystem::rename(path, name, error);
    errno = error.value();
    return error ? std::string() : name;
  }
}
