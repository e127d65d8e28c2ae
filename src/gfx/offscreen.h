#pragma once

#include <cstdint>

// Drawing into a picture of its own, with 8 bits of alpha, whatever the window has.

// Until offscreen_end, drawing and reading go to a picture of that size in pixels, which counts as
// the whole screen; its content is undefined, its clear colour black without alpha, and there is no
// depth. False, with nothing changed, where the driver has no such thing. Not to be nested.
bool offscreen_begin(int32_t width, int32_t height);

// Drops the picture, and goes back to what was drawn to before with the state that it had.
void offscreen_end();
