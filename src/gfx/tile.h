#pragma once

#include <cstdint>

// A picture that is larger than the framebuffer is drawn tile by tile. screen_width and
// screen_height remain the size of the whole picture; its viewport is moved so that the tile covers
// the framebuffer.

// Selects a tile, in pixels from the lower left of the picture. The sides are at least 1.
void tile_set(int32_t x, int32_t y, int32_t width, int32_t height);

// The framebuffer holds the whole picture again, as at first.
void tile_unset();

// The part of the frame that the framebuffer holds: the tile, or else the screen.
int32_t tile_width();
int32_t tile_height();

// glViewport, in pixels of the whole picture.
void tile_viewport(int32_t x, int32_t y, int32_t width, int32_t height);
