#include "app/fonts.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "support/file.h"
#include "support/report.h"
#include "text/built_in_fonts.h"
#include "text/font.h"

namespace {

constexpr const char *font_path = "font_fmod.dat";

// False, with errno, on failure.
bool write_font(const std::vector<uint8_t> &bytes) {
  FileReplacement file;
  if (!file_replace_begin(&file, font_path, false)) return false;
  return file_replace_end(&file,
                          std::fwrite(bytes.data(), 1, bytes.size(), file.stream) == bytes.size());
}

std::string with_cause(const char *problem, int cause) {
  return std::string(problem) + " (" + std::strerror(cause) + ")";
}

// Generates the font, and writes its file if there is none. `cause` is the error of reading the
// file, 0 if it was empty.
void generate_font(int cause) {
  const std::vector<uint8_t> bytes = font_build_fmod();
  std::string problem;
  if (cause == 0)
    problem = "is empty";
  else if (cause != ENOENT)
    problem = with_cause("can't be read", cause);
  else if (!write_font(bytes))
    problem = with_cause("could not be written", errno);
  if (!problem.empty())
    report_sentence("the font file \"%s\" %s; a generated font is used instead", font_path,
                    problem.c_str());
}

} // namespace

void fonts_start() {
  font_build_normal();
  std::vector<uint8_t> bytes;
  const int cause = font_file_read(font_path, &bytes) ? 0 : errno;
  if (cause == 0 && !bytes.empty())
    font_build_file(bytes, font_path, "fmod");
  else
    generate_font(cause);
}
