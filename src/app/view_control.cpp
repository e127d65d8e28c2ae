#include "app/view_control.h"

#include <algorithm>
#include <cmath>

#include "gfx/input.h"
#include "gfx/platform.h"
#include "gfx/window.h"

namespace {

constexpr double notch_in = 5.0 / 6.0;
constexpr double notch_out = 1.2;
constexpr double zoom_key_rate = 2.0;    // of the exponent, per second
constexpr double turn_key_rate = 2.0;    // radians per second
constexpr double turn_mouse_rate = 10.0; // radians per width of the screen
constexpr double move_key_rate = 2.0;    // zoom distances per second

// Longest frame time for zooming and turning by keys, in seconds. Otherwise a key held while the
// program is suspended could zoom to infinity.
constexpr double max_key_time = 1.0;

double limited(double dt) {
  return std::min(dt, max_key_time);
}

// 1, 0 or -1: the direction of two opposite keys.
double direction(bool forward, bool backward) {
  return (forward ? 1 : 0) - (backward ? 1 : 0);
}

} // namespace

void view_zoom(World *world, double dt) {
  if ((mouse_buttons & mouse_wheel_forward) != 0) world->zoom *= notch_in;
  if ((mouse_buttons & mouse_wheel_backward) != 0) world->zoom *= notch_out;
  const double exponent = zoom_key_rate * limited(dt);
  if (key_down('Z')) world->zoom *= std::exp(-exponent);
  if (key_down('X')) world->zoom *= std::exp(exponent);
}

void view_mouse_step(int32_t *dx, int32_t *dy) {
  constexpr uint32_t steering = mouse_left | mouse_right;
  const bool held = (mouse_buttons & steering) != 0;
  const bool was = (mouse_buttons_prev & steering) != 0;
  *dx = 0;
  *dy = 0;
  if (windowed != 0 && !held) {
    if (was) platform_show_cursor(true);
    return;
  }
  if (windowed == 0 && !window_active) return; // another program has the cursor
  gfx_mouse_recentre(dx, dy);
  if (windowed != 0 && !was) platform_show_cursor(false);
}

void view_mouse_steer(ViewControl *control, double zoom, int32_t dx, int32_t dy) {
  const double width = std::max(screen_width, 1); // 0 while minimised
  const double height = std::max(screen_height, 1);
  control->mx = 0;
  control->my = 0;
  if ((mouse_buttons & mouse_buttons_prev & mouse_right) != 0) {
    control->yaw += dx * turn_mouse_rate / width;
    control->pitch += dy * turn_mouse_rate / width;
  } else {
    control->mx = dx * zoom / height;
    control->my = -dy * zoom / height;
  }
}

void view_keys(ViewControl *control, double zoom, double dt) {
  if (key_down(vk_control)) {
    const double turn = turn_key_rate * limited(dt);
    control->pitch += turn * direction(key_down(vk_down), key_down(vk_up));
    control->yaw += turn * direction(key_down(vk_right), key_down(vk_left));
  } else {
    const double step = move_key_rate * zoom * dt;
    control->my +=
        step * direction(key_down(vk_up) || key_down('W'), key_down(vk_down) || key_down('S'));
    control->mx +=
        step * direction(key_down(vk_right) || key_down('D'), key_down(vk_left) || key_down('A'));
  }
}
