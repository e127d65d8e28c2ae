#include "maker/output.h"

#include <cstdio>

#include "maker/progress.h"
#include "support/file.h"

bool complain(const std::string &path, const char *words, const char *cause) {
  progress_end();
  std::fprintf(stderr, "vorel-maze: \"%s\" %s (%s)\n", path.c_str(), words, cause);
  return false;
}

bool may_write(const Options &options, const std::string &path) {
  return options.force || !file_identity(path).exists ||
         complain(path, "exists", "--force replaces it");
}
