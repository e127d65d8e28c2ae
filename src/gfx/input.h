#pragma once

#include <cstdint>

// The polled input: nothing here calls into the application. Keys go by virtual-key code.

constexpr uint32_t mouse_left = 1;
constexpr uint32_t mouse_right = 2;
constexpr uint32_t mouse_wheel_forward = 4; // turned since the last pump
constexpr uint32_t mouse_wheel_backward = 8;
constexpr uint32_t mouse_middle = 16;

enum VirtualKey : int32_t {
  vk_tab = 9,
  vk_shift = 16,
  vk_control = 17,
  vk_alt = 18,
  vk_escape = 27,
  vk_space = 32,
  vk_left = 37,
  vk_up = 38,
  vk_right = 39,
  vk_down = 40,
  vk_f3 = 114,
  vk_f4 = 115,
  vk_f5 = 116,
  vk_f6 = 117,
};

extern uint32_t quit_requested;      // set by a close request, never cleared
extern uint32_t mouse_buttons;       // the button word
extern uint32_t mouse_buttons_prev;  // as it stood when the last pump began
extern uint32_t mouse_event_buttons; // of the latest mouse message, before the release filter
extern int32_t mouse_x, mouse_y;     // client place of the latest mouse message, pixels
extern int32_t mouse_wait_release;   // 1 until the mouse was seen with all buttons up
extern void (*gesture_hook)(uintptr_t wparam, intptr_t lparam); // optional; null
extern char typed_text[512];        // queue of typed characters, at most 499
extern uint8_t key_state[384];      // bit 0x80: the key is down
extern uint8_t key_state_prev[384]; // one pump earlier
extern uint8_t window_active;       // the window has the focus and is not minimised

// Set by Alt+Tab and when a fullscreen window loses the focus: each pump asks to minimise the
// window. Cleared when it is minimised, or has the focus again.
extern uint8_t alt_tabbed;

// Whether a key is down, and whether it went down in the latest pump.
bool key_down(int32_t key);
bool key_pressed(int32_t key);

// Takes all waiting messages and brings the key tables up to date; never blocks. Returns
// quit_requested. A window that loses the focus forgets its buttons and keys; a fullscreen one is
// minimised and leaves the mouse to others until it is back.
uint32_t gfx_pump();

// The oldest typed character, taken out of the queue; 0 if there is none.
uint32_t gfx_next_typed_char();

// How far the cursor is from the middle of the window, in pixels, and puts it back there. Either
// pointer may be null. Where the cursor can't be put back, the mouse's own motion.
void gfx_mouse_recentre(int32_t *dx, int32_t *dy);

// What the platform's messages do. `buttons` is a mask of left, right and middle.
void input_mouse_message(uint32_t buttons, int32_t x, int32_t y);
void input_wheel_message(int32_t delta);
void input_char_message(uint32_t code);
void input_gesture_message(uintptr_t wparam, intptr_t lparam);
