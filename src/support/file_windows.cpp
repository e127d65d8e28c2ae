#include "support/file.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include "support/clock.h"

namespace {

constexpr int32_t rename_tries = 10;
constexpr int32_t rename_wait = 50; // milliseconds

// Names are UTF-8 here and UTF-16 for the system.
std::filesystem::path path_of(const std::string &name) {
  return std::u8string(name.begin(), name.end());
}

std::wstring wide(const std::string &name) {
  return path_of(name).wstring();
}

} // namespace

FILE *file_stream(const std::string &name, const char *mode) {
  return _wfopen(wide(name).c_str(), wide(mode).c_str());
}

FILE *file_create(const std::string &name, bool text) {
  const int flags = _O_CREAT | _O_EXCL | _O_WRONLY | (text ? _O_TEXT : _O_BINARY);
  const int file = _wopen(wide(name).c_str(), flags, _S_IREAD | _S_IWRITE);
  if (file < 0) return nullptr;
  FILE *stream = _fdopen(file, text ? "wt" : "wb");
  if (stream == nullptr) _close(file);
  return stream;
}

bool file_sync(FILE *stream) {
  return _commit(_fileno(stream)) == 0;
}

// Nobody can rename or delete what is open, so that a name that is there is still its own.
bool file_is_at(FILE *, const std::string &name) {
  std::error_code error;
  return std::filesystem::exists(path_of(name), error);
}

// Programs that look through new files, such as virus scanners, hold them for a moment. The library
// tells of a new name that is held as a refusal, but of an old one as a fault of the disk.
bool file_rename(const std::string &from, const std::string &to) {
  for (int32_t tries = 0; tries < rename_tries; tries++) {
    if (tries > 0) clock_sleep(rename_wait);
    std::error_code error, unknown;
    std::filesystem::rename(path_of(from), path_of(to), error);
    if (!error) return true;
    errno = error == std::errc::io_error ? EACCES : error.default_error_condition().value();
    if (!std::filesystem::exists(path_of(from), unknown) && !unknown) {
      errno = ENOENT;
      break;
    }
  }
  return false;
}

void file_survive_limits() {} // there are none that end a program
