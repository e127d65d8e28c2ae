#pragma once

#include <cstdint>

// Screenshots: 24-bit BMP files, which the command "magick", if there is one, converts to PNG. Two
// size fields of the BMP are constants and don't follow the picture.

// Saves the frame as drawn so far. The file name is `stem`, "_", five digits from the clock and the
// extension; shots within 0.3 seconds share a name. Waits at most ten seconds for the conversion.
void screenshot_save(const char *stem);

// Writes pixels: blue, green and red bytes, bottom row first, each row padded to a multiple of 4
// bytes. If `convert` is not 0, converts the file to a PNG of the same name and then removes the
// BMP. On failure reports the reason in a sentence and leaves no incomplete file.
void bmp_write(const void *pixels, int32_t width, int32_t height, const char *path,
               int32_t convert);

// Write a rectangle of the frame, x and y counted from the top left, or the whole frame.
void bmp_capture_rect(int32_t x, int32_t y, int32_t width, int32_t height, const char *path,
                      int32_t convert);
void bmp_capture_screen(const char *path, int32_t convert);
