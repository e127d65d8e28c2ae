#include "gfx/screenshot.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "gfx/gl.h"
#include "gfx/screen.h"
#include "support/bytes.h"
#include "support/clock.h"
#include "support/command.h"
#include "support/file.h"
#include "support/report.h"

namespace {

constexpr uint32_t header_size = 54;
// Constants, though the size of the file varies. Readers use the width and the height.
constexpr uint32_t file_size_field = 200262;
constexpr uint32_t image_size_field = 200208;
constexpr uint32_t pixels_per_metre = 2834;
constexpr double numbers_per_second = 3.3333333333333335;
constexpr int64_t numbers = 100000;
constexpr int32_t conversion_limit = 10000; // milliseconds

size_t row_length(int32_t width) {
  return (static_cast<size_t>(width) * 3 + 3) & ~size_t{3};
}

void put_header(uint8_t *at, int32_t width, int32_t height) {
  *at++ = 'B';
  *at++ = 'M';
  at = store_le(at, file_size_field);
  at = store_le(at, uint32_t{0});
  at = store_le(at, header_size);
  at = store_le(at, uint32_t{40}); // size of the information header
  at = store_le(at, width);
  at = store_le(at, height);
  at = store_le(at, uint16_t{1});  // planes
  at = store_le(at, uint16_t{24}); // bits per pixel
  at = store_le(at, uint32_t{0});  // not compressed
  at = store_le(at, image_size_field);
  at = store_le(at, pixels_per_metre);
  at = store_le(at, pixels_per_metre);
  std::memset(at, 0, 8); // unused: the palette
}

bool write_file(const void *pixels, int32_t width, int32_t height, const char *path) {
  uint8_t header[header_size];
  put_header(header, width, height);
  FILE *file = file_fopen(path, "wb");
  if (file == nullptr) return false;
  const size_t size = row_length(width) * static_cast<size_t>(height);
  const bool written = std::fwrite(header, 1, sizeof header, file) == sizeof header &&
                       std::fwrite(pixels, 1, size, file) == size;
  if (file_close_written(file, written)) return true;
  const int cause = errno;
  file_remove(path);
  errno = cause;
  return false;
}

// Replaces the extension of a path, or appends one. A dot in the first character starts no
// extension.
std::string png_path(const std::string &path) {
  const size_t dot = path.rfind('.');
  const bool has_extension = dot != std::string::npos && dot > 0;
  return (has_extension ? path.substr(0, dot) : path) + ".png";
}

// The time when a file was last written; a constant if it does not exist.
std::filesystem::file_time_type written_at(const std::string &path) {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(file_path(path), error);
  return error ? std::filesystem::file_time_type() : time;
}

// Whether a file ends with the name and the checksum of a PNG's last chunk. A converter can fail
// after it has written a part.
bool is_whole_png(const std::string &path) {
  constexpr char last_chunk[] = "IEND\xAE\x42\x60\x82";
  constexpr long length = sizeof last_chunk - 1;
  char end[length] = {};
  FILE *file = file_open(path.c_str());
  if (file == nullptr) return false;
  const bool read =
      std::fseek(file, -length, SEEK_END) == 0 && std::fread(end, length, 1, file) == 1;
  file_close_read(file);
  return read && std::memcmp(end, last_chunk, length) == 0;
}

// Removes the BMP only if the PNG is new: there may be one of an earlier shot with the same name.
// The status of the command can't decide: a converter may warn of the constant sizes in the header.
void convert_file(const std::string &path) {
  const std::string png = png_path(path);
  const auto before = written_at(png);
  std::string command = "magick -quality 95 \"";
  command.append(path).append("\" \"").append(png).append("\"");
  const bool ended = command_run(command, conversion_limit);
  if (!ended)
    report_sentence(
        "the command \"magick\" took longer than %d seconds and was stopped; the picture "
        "is \"%s\"",
        conversion_limit / 1000, path.c_str());
  if (written_at(png) != before) file_remove(ended && is_whole_png(png) ? path : png);
}

} // namespace

void bmp_write(const void *pixels, int32_t width, int32_t height, const char *path,
               int32_t convert) {
  if (!write_file(pixels, width, height, path)) {
    report_sentence("the picture could not be written to \"%s\" (%s)", path, std::strerror(errno));
    return;
  }
  if (convert != 0) convert_file(path);
}

void bmp_capture_rect(int32_t x, int32_t y, int32_t width, int32_t height, const char *path,
                      int32_t convert) {
  std::vector<uint8_t> pixels(row_length(width) * static_cast<size_t>(height));
  glReadPixels(x, screen_height - (y + height), width, height, GL_BGR, GL_UNSIGNED_BYTE,
               pixels.data());
  bmp_write(pixels.data(), width, height, path, convert);
}

void bmp_capture_screen(const char *path, int32_t convert) {
  bmp_capture_rect(0, 0, screen_width, screen_height, path, convert);
}

void screenshot_save(const char *stem) {
  const int64_t number = static_cast<int64_t>(gfx_clock() * numbers_per_second) % numbers;
  char extension[32];
  std::snprintf(extension, sizeof extension, "_%05d.bmp", static_cast<int>(number));
  bmp_capture_screen((stem + std::string(extension)).c_str(), 1);
}
