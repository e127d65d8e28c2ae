#include "support/file.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Some file systems can't flush a folder, so failures are ignored.
void sync_folder_of(const std::string &name) {
  const size_t slash = name.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : name.substr(0, slash + 1);
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

} // namespace

struct FileLock {
  int descriptor;
};

std::string file_utf8(const std::filesystem::path &path) {
  return path.string();
}

FILE *file_fopen(const std::string &name, const char *mode) {
  FILE *file = nullptr;
  do
    file = std::fopen(name.c_str(), mode);
  while (file == nullptr && errno == EINTR);
  return file;
}

FILE *file_create_new(const std::string &name, bool text) {
  return file_fopen(name, text ? "wtx" : "wbx");
}

bool file_rename(const std::string &from, const std::string &to, FileFlush flush) {
  if (std::rename(from.c_str(), to.c_str()) != 0) return false;
  if (flush == FileFlush::wait) sync_folder_of(to);
  return true;
}

bool file_sync(FILE *stream) {
  return fsync(fileno(stream)) == 0;
}

void file_sync_begin(FILE *stream) {
  sync_file_range(fileno(stream), 0, 0, SYNC_FILE_RANGE_WRITE);
}

bool file_is_same(FILE *stream, const std::string &name) {
  struct stat open_file, named;
  if (fstat(fileno(stream), &open_file) != 0) return false;
  if (lstat(name.c_str(), &named) != 0) {
    if (errno == ENOENT) errno = EBUSY;
    return false;
  }
  if (open_file.st_dev == named.st_dev && open_file.st_ino == named.st_ino) return true;
  errno = EBUSY;
  return false;
}

bool file_has_holes(FILE *stream) {
  const int file = fileno(stream);
  const off_t place = lseek(file, 0, SEEK_CUR);
  const off_t hole = lseek(file, 0, SEEK_HOLE); // the end counts as one
  const off_t end = lseek(file, 0, SEEK_END);
  lseek(file, place, SEEK_SET);
  return hole >= 0 && hole < end;
}

bool file_is_terminal(FILE *stream) {
  return isatty(fileno(stream)) != 0;
}

// The other way round, so that reading and writing them fails as if they were closed.
void file_open_standard_streams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; stream++) {
    const int way = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", way) != stream) return;
  }
}

void file_ignore_size_signal() {
  std::signal(SIGXFSZ, SIG_IGN);
}

FileIdentity file_identity(const std::string &name) {
  struct stat status;
  if (stat(name.c_str(), &status) != 0) return {};
  const int64_t time = int64_t{status.st_mtim.tv_sec} * 1000000000 + status.st_mtim.tv_nsec;
  return {status.st_dev, status.st_ino, static_cast<uint64_t>(status.st_size), time, true};
}

// Where the file system has no locks, the lock succeeds.
FileLock *file_lock(const std::string &name) {
  // Some network drives can lock only files that are open for writing.
  int descriptor = open(name.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) descriptor = open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return nullptr;
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    close(descriptor);
    errno = EWOULDBLOCK;
    return nullptr;
  }
  return new FileLock{descriptor};
}

void file_unlock(FileLock *lock) {
  if (lock == nullptr) return;
  close(lock->descriptor);
  delete lock;
}

// By the XDG rules for base directories, relative names are ignored.
std::string file_data_root() {
  const char *data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && data[0] == '/') return data;
  const char *home = std::getenv("HOME");
  return home != nullptr && home[0] == '/' ? std::string(home) + "/.local/share" : std::string();
}
