#include "app/session_names.h"

#include "support/file.h"

std::string set_aside(const std::string &path, const char *stem) {
  const std::string aside = file_free_name(stem, session_ending);
  return file_rename(path, aside) ? aside : std::string();
}
