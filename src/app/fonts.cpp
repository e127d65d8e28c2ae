#include "app/fonts.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "support/file.h"
#include "support/report.h"
#include "text/fmod_table.h"
#include "text/font.h"
#include "text/normal_font.h"

namespace {

constexpr const char *font_path = "font_fmod.dat";
constexpr const char *font_name = "fmod";

// False, with errno, if it can't be written.
bool write_font(const uint8_t *bytes, uint32_t size) {
  FileReplacement file;
  if (!file_replace_begin(&file, font_path, false)) return false;
  return file_replace_end(&file, std::fwrite(bytes, 1, size, file.stream) == size);
}

// Uses the drawn font without a file. `reason` is a number of errno's.
void build_drawn(const char *trouble, int reason, const uint8_t *bytes, uint32_t size) {
  report_sentence("the font file \"%s\" %s (%s); its font has been made without it", font_path,
                  trouble, std::strerror(reason));
  font_build(bytes, size, font_name);
}

} // namespace

void start_fonts() {
  font_build(normal_font.data(), normal_font_size, "normal");
  FILE *file = file_open(font_path);
  if (file != nullptr) {
    std::fclose(file);
    loadfont(font_path, font_name);
    return;
  }
  const int reason = errno;
  uint32_t size = 0;
  uint8_t *bytes = fmod_generate(&size);
  if (reason != ENOENT)
    build_drawn("can't be read", reason, bytes, size);
  else if (!write_font(bytes, size))
    build_drawn("could not be written", errno, bytes, size);
  else
    loadfont(font_path, font_name);
  std::free(bytes);
}
