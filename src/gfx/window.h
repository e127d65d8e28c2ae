#pragma once

#include <cstdint>

// The one window with its one OpenGL context, for the life of the process.

// Client size in pixels. Before gfx_open they hold the coded resolution request of gfx/display.h.
extern int32_t screen_width;
extern int32_t screen_height;

extern uint8_t windowed;            // 1: a window with a frame; 0: fullscreen
extern int32_t fullscreen_offset_x; // moves a fullscreen window, pixels
extern int32_t fullscreen_offset_y;
extern uint8_t projection_is_2d; // 1: gfx_resize sets pixel space; 0: the perspective default

// Opens the window by the coded request and sets the initial GL state. 1 if the window is open;
// 0 if the resolution leaves no area, as with monitors that do not exist. A display, window or
// context that can't be had is a fatal report, after one sentence to the user.
int32_t gfx_open(int32_t width_request, int32_t height_request, const char *title);

// Gives the display mode back and drops the context. Safe to repeat.
void gfx_close();

// Whether GL may be called: true between gfx_open and gfx_close.
bool gfx_context_alive();

// Records the client size (a height below 1 counts as 1) and resets viewport and projection. The
// matrix mode is left at modelview.
void gfx_resize(int32_t width, int32_t height);

// The initial GL state of gfx_open: black clear colour, depth test, smooth shading, colour
// material, seamless cube maps, projection, identity modelview.
void gfx_reset_state();

// What a close request does: gfx_close, and quit_requested.
void gfx_close_requested();
