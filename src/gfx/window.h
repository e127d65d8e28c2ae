#pragma once

#include <cstdint>

#include "gfx/screen.h"

// The one window with its one OpenGL context, for the life of the process.

// Opens the window for a coded request and sets the initial GL state. Returns 1 if the window is
// open; 0 if the request selects no area, for example monitors that do not exist. Failure to get a
// display, a window or a context is a fatal report, after a sentence to the user.
int32_t gfx_open(int32_t width_request, int32_t height_request, const char *title);

// Opens a small window that is never shown, for drawing to framebuffer objects. Needs no display
// where the window system can do without. False, after a sentence to the user, if that fails.
bool gfx_open_hidden(const char *title);

// Restores the display mode and destroys the context. May be called again.
void gfx_close();

// Whether GL may be called: true between gfx_open and gfx_close.
bool gfx_context_alive();

// Records the client size (a height below 1 counts as 1) and resets viewport and projection. Leaves
// the matrix mode at modelview.
void gfx_resize(int32_t width, int32_t height);

// Ends a frame: waits for the drawing, shows it, clears colour (0xRRGGBB) and depth, and loads an
// identity modelview.
void gfx_swap(uint32_t clear_colour);

// Sets the number of display frames that a swap waits for, if the platform supports it.
void swap_interval(int32_t frames);
