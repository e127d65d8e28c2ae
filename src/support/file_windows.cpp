#include "support/file.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

namespace {

constexpr int32_t rename_tries = 10;
constexpr DWORD rename_wait = 50; // milliseconds

// Names are UTF-8 here and UTF-16 for the system.
std::wstring wide(const std::string &name) {
  return std::filesystem::path(std::u8string(name.begin(), name.end())).wstring();
}

struct ErrorCode {
  DWORD from;
  int to;
};

constexpr ErrorCode error_codes[] = {
    {ERROR_FILE_NOT_FOUND, ENOENT}, {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_ACCESS_DENIED, EACCES},  {ERROR_SHARING_VIOLATION, EACCES},
    {ERROR_DISK_FULL, ENOSPC},      {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_ALREADY_EXISTS, EEXIST},
};

int error_number(DWORD code) {
  for (const ErrorCode &entry : error_codes)
    if (entry.from == code) return entry.to;
  return EIO;
}

bool identity(HANDLE file, BY_HANDLE_FILE_INFORMATION *out) {
  return file != INVALID_HANDLE_VALUE && GetFileInformationByHandle(file, out) != 0;
}

} // namespace

FILE *file_stream(const std::string &name, const char *mode) {
  return _wfopen(wide(name).c_str(), wide(mode).c_str());
}

FILE *file_create(const std::string &name, bool text) {
  const int flags = _O_CREAT | _O_EXCL | _O_WRONLY | (text ? _O_TEXT : _O_BINARY);
  const int file = _wopen(wide(name).c_str(), flags, _S_IREAD | _S_IWRITE);
  return file < 0 ? nullptr : _fdopen(file, text ? "wt" : "wb");
}

bool file_sync(FILE *stream) {
  return _commit(_fileno(stream)) == 0;
}

bool file_is_at(FILE *stream, const std::string &name) {
  const HANDLE there = CreateFileW(wide(name).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                   nullptr, OPEN_EXISTING, 0, nullptr);
  BY_HANDLE_FILE_INFORMATION named, open_file;
  const bool known = identity(there, &named);
  if (there != INVALID_HANDLE_VALUE) CloseHandle(there);
  return known && identity(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))), &open_file) &&
         open_file.dwVolumeSerialNumber == named.dwVolumeSerialNumber &&
         open_file.nFileIndexHigh == named.nFileIndexHigh &&
         open_file.nFileIndexLow == named.nFileIndexLow;
}

// Programs that look through new files, such as virus scanners, hold them for a moment.
bool file_rename(const std::string &from, const std::string &to) {
  DWORD error = ERROR_SUCCESS;
  for (int32_t tries = 0; tries < rename_tries; tries++) {
    if (MoveFileExW(wide(from).c_str(), wide(to).c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
      return true;
    error = GetLastError();
    if (error_number(error) != EACCES) break;
    Sleep(rename_wait);
  }
  errno = error_number(error);
  return false;
}

void file_survive_limits() {} // there are none that end a program
