#include "app/fonts.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "support/file.h"
#include "support/report.h"
#include "text/fmod_table.h"
#include "text/font.h"
#include "text/normal_font.h"

namespace {

constexpr const char *font_path = "font_fmod.dat";
constexpr const char *font_name = "fmod";

// False, with errno, on failure.
bool write_font(const uint8_t *bytes, uint32_t size) {
  FileReplacement file;
  if (!file_replace_begin(&file, font_path, false)) return false;
  return file_replace_end(&file, std::fwrite(bytes, 1, size, file.stream) == size);
}

std::string with_cause(const char *problem, int cause) {
  return std::string(problem) + " (" + std::strerror(cause) + ")";
}

// Generates the font, and writes its file if there is none. `cause` is the error of reading the
// file, 0 if it was empty.
void generate_font(int cause) {
  uint32_t size = 0;
  uint8_t *bytes = fmod_generate(&size);
  std::string problem;
  if (cause == 0)
    problem = "is empty";
  else if (cause != ENOENT)
    problem = with_cause("can't be read", cause);
  else if (!write_font(bytes, size))
    problem = with_cause("could not be written", errno);
  if (!problem.empty())
    report_sentence("the font file \"%s\" %s; a generated font is used instead", font_path,
                    problem.c_str());
  font_build(bytes, size, font_name);
  std::free(bytes);
}

} // namespace

void fonts_start() {
  font_build(normal_font.data(), normal_font_size, "normal");
  std::vector<uint8_t> bytes;
  const int cause = font_file_read(font_path, &bytes) ? 0 : errno;
  if (cause == 0 && !bytes.empty())
    font_build_file(bytes, font_path, font_name);
  else
    generate_font(cause);
}
