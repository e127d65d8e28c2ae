#pragma once

#include <cstdint>

// Pictures of the frame as files: 24-bit BMP, which the command "magick", where there is one, turns
// into a PNG. Two size fields of the BMP are constants, whatever the picture.

// Saves the frame as drawn so far, as `stem`, "_", a number of five digits that the clock gives,
// and the ending. Shots within 0.3 seconds share a number. Waits for the conversion, for at most
// ten seconds.
void screenshot_save(const char *stem);

// Writes a picture: blue, green and red bytes, bottom row first, each row padded to a multiple of 4
// bytes. With `convert` the BMP then becomes a PNG of the same name, if that can be made, else it
// stays. Of a file that can't be written nothing stays, and a sentence tells why.
void bmp_write(const void *pixels, int32_t width, int32_t height, const char *path,
               int32_t convert);

// The same with a rectangle of the frame, x and y counted from the top left, or the whole of it.
void bmp_capture_rect(int32_t x, int32_t y, int32_t width, int32_t height, const char *path,
                      int32_t convert);
void bmp_capture_screen(const char *path, int32_t convert);
