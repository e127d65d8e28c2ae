#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A picture: three bytes per pixel, red first, top row first, rows without padding.
struct Image {
  int32_t width, height; // pixels
  std::vector<uint8_t> rgb;
};

// Replaces the file, whole or not at all. False, with the reason in `error`, if it cannot be
// written.
bool png_save(const Image &image, const std::string &path, std::string *error);
