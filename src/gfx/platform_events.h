#pragma once

#include <cstdint>

#include "gfx/input_codes.h"

// The events that a platform file reports, the only functions of gfx that it may call besides
// display.h. It calls them inside platform_messages or, where the system sends messages by itself,
// inside any other function of the seam. gfx/window.cpp and gfx/input.cpp implement them.

// The client area has a new size in pixels, 0 by 0 while minimised.
void event_resize(int32_t width, int32_t height);

// The window is being closed: ends the context and asks the program to quit.
void event_close();

// The user's session ends: asks the program to quit while the window stays open.
void event_quit();

// The mouse has moved, or a button was pressed or released. `buttons` is a mask of those held:
// mouse_left, mouse_right and mouse_middle. The position is in client pixels.
struct MouseEvent {
  uint32_t buttons;
  int32_t x, y;
};
void event_mouse(const MouseEvent &mouse);

// The latest mouse event, with the buttons released if the window has lost the focus since.
MouseEvent event_latest_mouse();

// Whether presses are ignored until all buttons have been up once.
bool event_awaits_release();

// The wheel was turned: forward if above 0, otherwise backward.
void event_wheel(int32_t delta);

// A character was typed. The low byte of the code is kept.
void event_char(uint32_t code);

// A touch gesture, with the parameters of the Windows message.
void event_gesture(uintptr_t wparam, intptr_t lparam);
