#include "support/file.h"

#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

FILE *file_stream(const std::string &name, const char *mode) {
  return std::fopen(name.c_str(), mode);
}

FILE *file_create(const std::string &name, bool text) {
  return std::fopen(name.c_str(), text ? "wtx" : "wbx");
}

bool file_rename(const std::string &from, const std::string &to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

bool file_sync(FILE *stream) {
  return fsync(fileno(stream)) == 0;
}

bool file_is_at(FILE *stream, const std::string &name) {
  struct stat open_file, named;
  return fstat(fileno(stream), &open_file) == 0 && lstat(name.c_str(), &named) == 0 &&
         open_file.st_dev == named.st_dev && open_file.st_ino == named.st_ino;
}

void file_survive_limits() {
  std::signal(SIGXFSZ, SIG_IGN);
}
