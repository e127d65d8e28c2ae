#pragma once

#include <cstdint>

#include "support/list.h"

// The seam to the window system: what a platform supplies. One source file implements it, the
// build picks which, and no other file knows a window system. Nothing here calls back: messages
// are handed to the functions of gfx/input.h and gfx/window.h, inside platform_messages or, where
// the system does so, inside another of these functions.

// Edges in virtual-desktop pixels; right and bottom are one past the last pixel.
struct MonitorRect {
  int32_t left, top, right, bottom;
};

struct PlatformPoint {
  int32_t x, y;
};

// What the placement rules need to know of the display.
struct PlatformMetrics {
  int32_t primary_width, primary_height;
  MonitorRect virtual_desktop;
  int32_t frame_width, frame_height; // thickness of a window frame's sides, top and bottom
  int32_t caption_height;
};

// Outer position and client size of the window to be made, and how.
struct PlatformWindowRequest {
  const char *title;
  MonitorRect outer;                   // with frame and caption
  int32_t client_width, client_height; // pixels of the picture
  bool framed;
  bool change_display_mode; // switch the display to the client size
};

// How far platform_open came.
enum class PlatformOpen {
  ok,
  no_class,
  no_window,
  no_pixel_format,
  bad_pixel_format,
  no_context,
  no_current
};

// Hands what the system has of its own to `support`, before anything else is called: its
// clock, its thread numbers and its sleep, and a way to tell sentences to a user who has no
// standard error to read them from.
void platform_begin();

// Connects to the display. False, with platform_fault told, if there is none.
bool platform_connect();

// Makes pixel sizes true on scaled displays, where the platform wants to be asked.
void platform_dpi_aware();

PlatformMetrics platform_metrics();

// Appends a MonitorRect for each monitor, in the system's order.
void platform_monitors(GrowList *out);

// Makes the window and a current OpenGL context of the compatibility profile.
PlatformOpen platform_open(const PlatformWindowRequest *request);

// What went wrong in platform_connect or platform_open, as part of a sentence for the user.
const char *platform_fault();

// Drops the context and gives the display its mode back. Safe to repeat.
void platform_close();

// An OpenGL entry point by name; null if there is none.
void *platform_gl_proc(const char *name);

void platform_swap_buffers();

// Display frames that a swap waits for; nothing happens where the system decides.
void platform_swap_interval(int32_t frames);

// Hands all waiting messages to gfx/input.h and gfx/window.h, without blocking. True if the system
// asked the program to quit.
bool platform_messages();

// Waits until there is a message or the time is over.
void platform_wait(int32_t milliseconds);

bool platform_is_minimised();
void platform_minimise();
void platform_keep_on_top();
bool platform_has_focus();

// Bit 0x80 of each byte tells that the key of that virtual-key code is down.
void platform_key_snapshot(uint8_t keys[256]);

MonitorRect platform_window_rect(); // outer, with the frame
PlatformPoint platform_cursor();

// False where the cursor can't be moved; platform_relative_motion then steers instead.
bool platform_set_cursor(PlatformPoint place);

// Mouse motion since the last call, for platforms that can't move the cursor.
PlatformPoint platform_relative_motion();

void platform_show_cursor(bool shown);

// Allowed at the start.
void platform_allow_screen_saver(bool allowed);

// A box with an error sign and one button; returns when it was answered.
void platform_message_box(const char *caption, const char *text);

// Puts the local date and time there, as "2018-Jan-31 23:59:59" with the month in the user's
// language; an empty text if it can't be told.
constexpr int32_t platform_date_size = 64;
void platform_date(char date[platform_date_size]);
