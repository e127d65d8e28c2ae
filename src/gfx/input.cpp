#include "gfx/input.h"

#include <cstring>

#include "gfx/platform.h"
#include "gfx/platform_events.h"
#include "gfx/screen.h"

uint32_t quit_requested;
uint32_t mouse_buttons;
uint32_t mouse_buttons_prev;
uint32_t mouse_event_buttons;
int32_t mouse_x, mouse_y;
int32_t mouse_wait_release = 1;
void (*gesture_hook)(uintptr_t wparam, intptr_t lparam);
char typed_text[512];
uint8_t key_state[384];
uint8_t key_state_prev[384];
uint8_t alt_tabbed;
bool window_active;

namespace {

constexpr uint32_t press_bits = mouse_left | mouse_right | mouse_middle;
constexpr uint32_t wheel_bits = mouse_wheel_forward | mouse_wheel_backward;
constexpr size_t typed_limit = 499;
constexpr int32_t word_mask = 0xFFFF; // negative positions become large numbers
constexpr uint8_t down_bit = 0x80;

// Releases all keys and buttons, since their release events go to another program.
void leave_window() {
  if (mouse_event_buttons != 0) mouse_wait_release = 1; // its release may never be seen
  mouse_buttons &= wheel_bits;
  mouse_event_buttons = 0;
  std::memset(key_state, 0, sizeof key_state);
  if (windowed != 0) return;
  platform_show_cursor(true);
  platform_allow_screen_saver(true);
  alt_tabbed = 1;
}

// Discards the cursor's motion while the window was inactive.
void enter_window() {
  alt_tabbed = 0; // some systems never report that a window was minimised
  if (windowed != 0) return;
  platform_show_cursor(false);
  platform_allow_screen_saver(false);
  gfx_mouse_recentre(nullptr, nullptr);
}

void follow_focus() {
  const bool active = platform_has_focus() && !platform_is_minimised();
  if (active == window_active) return;
  window_active = active;
  if (active)
    enter_window();
  else
    leave_window();
}

} // namespace

bool key_down(int32_t key) {
  return (key_state[key] & down_bit) != 0;
}

bool key_pressed(int32_t key) {
  return (~key_state_prev[key] & key_state[key] & down_bit) != 0;
}

uint32_t gfx_pump() {
  mouse_buttons_prev = mouse_buttons;
  mouse_buttons &= ~wheel_bits;
  if (platform_messages()) {
    quit_requested = 1;
    return quit_requested;
  }
  follow_focus();
  // While minimised the keys keep their state, so that none seems pressed or released.
  std::memcpy(key_state_prev, key_state, sizeof key_state);
  if (platform_is_minimised()) {
    alt_tabbed = 0;
    return quit_requested;
  }
  if (alt_tabbed == 0 && windowed == 0 && window_active) platform_keep_on_top();
  platform_key_snapshot(key_state);
  // Some systems take several pumps to minimise a window, so repeat until it is done.
  if (key_down(vk_alt) && key_down(vk_tab)) alt_tabbed = 1;
  if (alt_tabbed != 0) platform_minimise();
  return quit_requested;
}

uint32_t gfx_next_typed_char() {
  uint32_t first = static_cast<uint8_t>(typed_text[0]);
  if (first != 0) std::memmove(typed_text, typed_text + 1, std::strlen(typed_text));
  return first;
}

void gfx_mouse_recentre(int32_t *dx, int32_t *dy) {
  MonitorRect outer = platform_window_rect();
  DisplayPoint centre = {(outer.left + outer.right) / 2, (outer.top + outer.bottom) / 2};
  DisplayPoint cursor = platform_cursor();
  DisplayPoint motion = {cursor.x - centre.x, cursor.y - centre.y};
  // A cursor that can't be moved would give the same motion in every frame.
  if (!platform_set_cursor(centre)) motion = platform_relative_motion();
  if (dx != nullptr) *dx = motion.x;
  if (dy != nullptr) *dy = motion.y;
}

void event_mouse(const MouseEvent &mouse) {
  mouse_x = mouse.x & word_mask;
  mouse_y = mouse.y & word_mask;
  mouse_event_buttons = mouse.buttons & press_bits;
  if (mouse_event_buttons == 0) mouse_wait_release = 0;
  if (mouse_wait_release != 0) return;
  mouse_buttons = (mouse_buttons & wheel_bits) | mouse_event_buttons;
}

MouseEvent event_latest_mouse() {
  return {mouse_event_buttons, mouse_x, mouse_y};
}

bool event_awaits_release() {
  return mouse_wait_release != 0;
}

void event_wheel(int32_t delta) {
  mouse_buttons |= delta > 0 ? mouse_wheel_forward : mouse_wheel_backward;
}

void event_char(uint32_t code) {
  size_t length = std::strlen(typed_text);
  if (length >= typed_limit) return;
  typed_text[length] = static_cast<char>(code & 0xFF);
  typed_text[length + 1] = '\0';
}

void event_gesture(uintptr_t wparam, intptr_t lparam) {
  if (gesture_hook != nullptr) gesture_hook(wparam, lparam);
}
