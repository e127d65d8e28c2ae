#include "maker/png.h"

#include <cerrno>
#include <cstring>

#include <png.h>

#include "support/file.h"

bool png_save(const Image &image, const std::string &path, std::string *error) {
  FileReplacement file;
  *error = "";
  if (file_replace_begin(&file, path.c_str(), false)) {
    png_image header = {};
    header.version = PNG_IMAGE_VERSION;
    header.width = static_cast<uint32_t>(image.width);
    header.height = static_cast<uint32_t>(image.height);
    header.format = PNG_FORMAT_RGB;
    errno = 0;
    const bool written =
        png_image_write_to_stdio(&header, file.stream, 0, image.rgb.data(), 0, nullptr) != 0;
    if (!written && errno == 0) *error = header.message;
    if (file_replace_end(&file, written)) return true;
  }
  if (error->empty()) *error = std::strerror(errno);
  return false;
}
