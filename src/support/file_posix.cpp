#include "support/file.h"

#include <csignal>

#include <unistd.h>

bool file_sync(FILE *stream) {
  return fsync(fileno(stream)) == 0;
}

void file_survive_limits() {
  std::signal(SIGXFSZ, SIG_IGN);
}
