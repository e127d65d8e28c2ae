#include "maker/user_files.h"

#include "support/file.h"
#include "support/sentence.h"

bool report_file_error(const std::string &path, const char *words, const char *cause) {
  report_sentence("\"%s\" %s (%s)", path.c_str(), words, cause);
  return false;
}

bool may_write(const Options &options, const std::string &path) {
  return options.force || !file_name_is_taken(path) ||
         report_file_error(path, "exists", "--force replaces it");
}
