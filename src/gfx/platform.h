#pragma once

#include <cstdint>

#include "gfx/display.h"

// The seam to the window system: what a platform supplies. One platform implements it, which the
// build selects, and no other file knows a window system. A platform file includes nothing else of
// gfx but platform_events.h, to which it reports events.

// Outer position and client size of the window to be opened.
struct PlatformWindowRequest {
  const char *title;
  MonitorRect outer;                   // with frame and caption
  int32_t client_width, client_height; // pixels
  bool framed;
  bool change_display_mode; // switch the display to the client size
  bool hidden;              // never shown
};

// The result of platform_open: ok, or the step that failed.
enum class PlatformOpen {
  ok,
  no_class,
  no_window,
  no_pixel_format,
  bad_pixel_format,
  no_context,
  no_current
};

// Prepares the process: handles signals, or replaces the clock, sleep, thread id and message box of
// support/. To be called first.
void platform_begin();

// Connects to the display; with `hidden`, needs one only if hidden windows do. False, with
// platform_error set, if there is none.
bool platform_connect(bool hidden);

// Asks for true pixel sizes on scaled displays, where the platform needs it.
void platform_dpi_aware();

DisplayMetrics platform_metrics();

// Appends a MonitorRect for each monitor, in the system's order.
void platform_monitors(GrowList *out);

// Opens the window and makes a context of the compatibility profile current. Unless the result is
// ok, platform_error is set.
PlatformOpen platform_open(const PlatformWindowRequest *request);

// The reason why platform_connect or platform_open failed, as part of a sentence for the user.
const char *platform_error();

// Destroys the context and restores the display mode. May be called again.
void platform_close();

// An OpenGL entry point by name; null if there is none.
void *platform_gl_proc(const char *name);

void platform_swap_buffers();

// The OpenGL extension without which platform_swap_interval must not be called; null for none.
const char *platform_swap_extension();

// Sets the number of display frames that a swap waits for.
void platform_swap_interval(int32_t frames);

// Reports all waiting messages as events, without blocking. True if the system asked the program to
// quit.
bool platform_messages();

// Waits until there is a message, for at most that time.
void platform_wait(int32_t milliseconds);

bool platform_is_minimised();
void platform_minimise();
void platform_keep_on_top();
bool platform_has_focus();

// Sets bit 0x80 of the bytes whose virtual keys are down.
void platform_key_snapshot(uint8_t keys[256]);

MonitorRect platform_window_rect(); // outer, with the frame
DisplayPoint platform_cursor();

// False if the cursor can't be moved; use platform_relative_motion then.
bool platform_set_cursor(DisplayPoint position);

// Mouse motion since the last call, for platforms that can't move the cursor.
DisplayPoint platform_relative_motion();

void platform_show_cursor(bool shown);

// Initially allowed.
void platform_allow_screen_saver(bool allowed);

// Shows a box with an error sign and one button, and returns when the user has answered.
void platform_message_box(const char *caption, const char *text);

// Writes the local date and time as "2018-Jan-31 23:59:59", on Windows with the month in the user's
// language; an empty text if the time is unknown.
constexpr int32_t platform_date_size = 64;
void platform_date(char date[platform_date_size]);
