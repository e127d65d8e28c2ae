#include "gfx/fake_platform.h"

#include <cstdio>
#include <cstring>

#include "gfx/input.h"
#include "gfx/window.h"

FakePlatform fake;

void fake_start() {
  gfx_close();
  fake = {};
  quit_requested = mouse_buttons = mouse_buttons_prev = mouse_event_buttons = 0;
  mouse_x = mouse_y = screen_width = screen_height = 0;
  fullscreen_offset_x = fullscreen_offset_y = 0;
  mouse_wait_release = 1;
  gesture_hook = nullptr;
  alt_tabbed = windowed = window_active = 0;
  projection_is_2d = 1;
  std::memset(key_state, 0, sizeof key_state);
  std::memset(key_state_prev, 0, sizeof key_state_prev);
}

bool platform_connect() {
  return fake.has_display;
}
void platform_dpi_aware() {}
PlatformMetrics platform_metrics() {
  return fake.metrics;
}
void platform_monitors(GrowList *out) {
  for (const MonitorRect &monitor : fake.monitors)
    GrowList_append(out, &monitor);
}
PlatformOpen platform_open(const PlatformWindowRequest *request) {
  fake.request = *request;
  return fake.open_result;
}
const char *platform_fault() {
  return "the fake said so";
}
void platform_close() {}
void *platform_gl_proc(const char *) {
  return nullptr;
}
void platform_swap_buffers() {}
void platform_swap_interval(int32_t) {}
bool platform_messages() {
  return fake.messages && fake.messages();
}
void platform_wait(int32_t) {}
bool platform_has_focus() {
  return fake.focused;
}
bool platform_is_minimised() {
  return fake.minimised;
}
void platform_minimise() {
  fake.minimise_asked++;
}
void platform_keep_on_top() {
  fake.on_top_asked++;
}
void platform_key_snapshot(uint8_t keys[256]) {
  std::memset(keys, 0, 256);
  for (uint8_t key : fake.keys_down)
    keys[key] = 0x80;
}
MonitorRect platform_window_rect() {
  return fake.window_rect;
}
PlatformPoint platform_cursor() {
  return fake.cursor;
}
bool platform_set_cursor(PlatformPoint place) {
  if (fake.cursor_moves) fake.cursor = place;
  return fake.cursor_moves;
}
PlatformPoint platform_relative_motion() {
  return fake.relative;
}
void platform_show_cursor(bool shown) {
  fake.cursor_hidden += shown ? -1 : 1;
}
void platform_allow_screen_saver(bool allowed) {
  fake.screen_saver = allowed;
}
void platform_message_box(const char *caption, const char *text) {
  fake.box = std::string(caption) + "|" + text;
}
void platform_begin() {}
void platform_date(char date[platform_date_size]) {
  std::snprintf(date, platform_date_size, "2018-Jan-31 23:59:59");
}
