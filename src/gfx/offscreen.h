#pragma once

#include <cstdint>

// Drawing to a framebuffer object instead of the window, with 8 bits of alpha.

struct Offscreen {
  uint32_t framebuffer, colour, depth; // names; depth is 0 without a depth buffer
  uint32_t framebuffer_before;
  int32_t width_before, height_before; // of the screen, pixels
};

// Redirects drawing and reading, until offscreen_end, to a colour buffer of that size in pixels,
// and a depth buffer if `with_depth`. screen_width and screen_height are its size for that time.
// The content is undefined, the clear colour is black with an alpha of 0. False, with nothing
// changed, if the driver has no framebuffer objects or not of that size. Can be nested.
bool offscreen_begin(Offscreen *target, int32_t width, int32_t height, bool with_depth = false);

// Deletes the buffers and restores the previous framebuffer and GL state.
void offscreen_end(Offscreen *target);
