#pragma once

#include <cstdint>

// Drawing to a framebuffer object instead of the window, with 8 bits of alpha.

// Redirects drawing and reading, until offscreen_end, to a colour buffer of that size in pixels.
// screen_width and screen_height are its size for that time. The content is undefined, the clear
// colour is black with an alpha of 0, and there is no depth buffer. False, with nothing changed, if
// the driver has no framebuffer objects. Not to be nested.
bool offscreen_begin(int32_t width, int32_t height);

// Deletes the buffer and restores the previous framebuffer and GL state.
void offscreen_end();
