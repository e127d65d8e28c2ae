#pragma once

#include <cstdint>

// The size of the one window, and how it is to be opened.

// Client size in pixels. Before gfx_open they hold the resolution request, coded as in
// gfx/display.h.
extern int32_t screen_width;
extern int32_t screen_height;

extern uint8_t windowed;            // 1: a window with a frame; 0: fullscreen
extern int32_t fullscreen_offset_x; // moves a fullscreen window, pixels
extern int32_t fullscreen_offset_y;
extern uint8_t projection_is_2d; // 1: gfx_resize sets pixel space; 0: the default perspective
