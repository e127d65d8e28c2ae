#include "support/file.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include "support/clock.h"

namespace {

constexpr int32_t rename_tries = 10;
constexpr int32_t rename_wait = 50; // milliseconds

std::wstring wide(const std::string &name) {
  return file_path(name).wstring();
}

uint64_t join_halves(DWORD high, DWORD low) {
  return uint64_t{high} << 32 | low;
}

} // namespace

struct FileLock {
  HANDLE handle;
};

std::string file_utf8(const std::filesystem::path &path) {
  const std::wstring &text = path.native();
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

FILE *file_fopen(const std::string &name, const char *mode) {
  return _wfopen(wide(name).c_str(), wide(mode).c_str());
}

FILE *file_create_new(const std::string &name, bool text) {
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

// An open file can't be renamed or deleted here, so a name that exists is still the file's.
bool file_is_same(FILE *, const std::string &name) {
  std::error_code error;
  if (std::filesystem::exists(file_path(name), error)) return true;
  errno = EBUSY;
  return false;
}

void file_sync_begin(FILE *) {} // the system starts by itself

FileIdentity file_identity(const std::string &name) {
  const DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(wide(name).c_str(), 0, share, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  BY_HANDLE_FILE_INFORMATION found;
  if (file == INVALID_HANDLE_VALUE) return {};
  const bool known = GetFileInformationByHandle(file, &found) != FALSE;
  CloseHandle(file);
  if (!known) return {};
  const FILETIME &time = found.ftLastWriteTime;
  return {found.dwVolumeSerialNumber, join_halves(found.nFileIndexHigh, found.nFileIndexLow),
          join_halves(found.nFileSizeHigh, found.nFileSizeLow),
          static_cast<int64_t>(join_halves(time.dwHighDateTime, time.dwLowDateTime)), true};
}

// Opening for writing while sharing only reading excludes others that do the same.
FileLock *file_lock(const std::string &name) {
  const HANDLE handle =
      CreateFileW(wide(name).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr); // for folders
  if (handle != INVALID_HANDLE_VALUE) return new FileLock{handle};
  const DWORD error = GetLastError();
  const bool missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
  errno = missing ? ENOENT : error == ERROR_SHARING_VIOLATION ? EWOULDBLOCK : EACCES;
  return nullptr;
}

void file_unlock(FileLock *lock) {
  if (lock == nullptr) return;
  CloseHandle(lock->handle);
  delete lock;
}

std::string file_data_root() {
  const wchar_t *data = _wgetenv(L"LOCALAPPDATA");
  if (data == nullptr) return {};
  return file_utf8(data);
}

// Virus scanners hold new files open for a moment, so retry. std::filesystem reports a locked
// target as access denied and a locked source as an I/O error. Folders need no flush here.
bool file_rename(const std::string &from, const std::string &to, FileFlush flush) {
  const int32_t max_tries = flush == FileFlush::wait ? rename_tries : 1; // else the caller retries
  for (int32_t tries = 0; tries < max_tries; tries++) {
    if (tries > 0) clock_sleep(rename_wait);
    std::error_code error, unknown;
    std::filesystem::rename(file_path(from), file_path(to), error);
    if (!error) return true;
    errno = error == std::errc::io_error ? EACCES : error.default_error_condition().value();
    if (!std::filesystem::exists(file_path(from), unknown) && !unknown) {
      errno = ENOENT;
      break;
    }
  }
  return false;
}

// Sparse files need not have holes, and compressed files also take less than their length.
bool file_has_holes(FILE *stream) {
  const HANDLE file = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  FILE_BASIC_INFO basic = {};
  FILE_STANDARD_INFO standard = {};
  return GetFileInformationByHandleEx(file, FileBasicInfo, &basic, sizeof basic) != 0 &&
         (basic.FileAttributes & FILE_ATTRIBUTE_SPARSE_FILE) != 0 &&
         GetFileInformationByHandleEx(file, FileStandardInfo, &standard, sizeof standard) != 0 &&
         standard.AllocationSize.QuadPart < standard.EndOfFile.QuadPart;
}

bool file_is_terminal(FILE *stream) {
  return _isatty(_fileno(stream)) != 0;
}

void file_open_standard_streams() {} // descriptors are not reused here

void file_ignore_size_signal() {} // there is no such signal
