#include "support/file.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

FileRead file_read_all(const char *path, std::vector<uint8_t> *bytes) {
  FILE *file = std::fopen(path, "rb");
  if (file == nullptr) return errno == ENOENT ? FileRead::absent : FileRead::unreadable;
  std::error_code unknown; // of a pipe, say: then the end tells
  const auto size = std::filesystem::file_size(path, unknown);
  bytes->resize(unknown ? 0 : size);
  bytes->resize(std::fread(bytes->data(), 1, bytes->size(), file));
  uint8_t more[4096]; // of a file that has grown since, or the proof that there is no more
  for (size_t got = 0; (got = std::fread(more, 1, sizeof more, file)) > 0;)
    bytes->insert(bytes->end(), more, more + got);
  const bool failed = std::ferror(file) != 0;
  const int cause = errno;
  std::fclose(file);
  errno = cause;
  return failed ? FileRead::unreadable : FileRead::done;
}

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
