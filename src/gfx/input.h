#pragma once

#include <cstdint>

#include "gfx/input_codes.h"

// Polled input: nothing here calls into the application.

extern uint32_t quit_requested;      // set by a close request, never cleared
extern uint32_t mouse_buttons;       // the button word
extern uint32_t mouse_buttons_prev;  // its value when the last pump began
extern uint32_t mouse_event_buttons; // of the latest mouse event, before the release filter
extern int32_t mouse_x, mouse_y;     // client position of the latest mouse event, pixels
extern int32_t mouse_wait_release;   // 1 until the mouse was seen with all buttons up
extern void (*gesture_hook)(uintptr_t wparam, intptr_t lparam); // optional; null
extern char typed_text[512];        // queue of typed characters, at most 499
extern uint8_t key_state[384];      // by virtual-key code; bit 0x80: the key is down
extern uint8_t key_state_prev[384]; // one pump earlier
extern bool window_active;          // the window has the focus and is not minimised

// Set by Alt+Tab and when a fullscreen window loses the focus: each pump then minimises the window.
// Cleared once it is minimised or has the focus again.
extern uint8_t alt_tabbed;

// Whether a key is down, and whether it went down in the latest pump.
bool key_down(int32_t key);
bool key_pressed(int32_t key);

// Handles all waiting messages and updates the key tables; never blocks. Returns quit_requested. A
// window that loses the focus releases its buttons and keys; a fullscreen one is also minimised and
// frees the mouse until it is back.
uint32_t gfx_pump();

// Removes the oldest typed character from the queue and returns it; 0 if there is none.
uint32_t gfx_next_typed_char();

// Returns how far the cursor is from the centre of the window, in pixels, and puts it back there.
// Either pointer may be null. If the cursor can't be moved, returns the mouse's relative motion.
void gfx_mouse_recentre(int32_t *dx, int32_t *dy);
