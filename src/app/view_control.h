#pragma once

#include <cstdint>

#include "world/world.h"

// Converts mouse, wheel and keys to a frame's zoom, rotation and motion. Speeds are proportional to
// the zoom, so that the picture moves at the same rate at any distance.
struct ViewControl {
  double yaw;    // radians about z, unbounded
  double pitch;  // radians; 0 looks straight down, -pi straight up; clamped by World_turn_view
  double mx, my; // motion in this frame along the view's right and up, world units
};

// Zooms by the wheel and by the keys Z and X. dt is the frame time in seconds.
void view_zoom(World *world, double dt);

// The motion of the mouse in pixels, 0 unless it steers: in fullscreen always, in a window while
// the left or right button is held, which hides the cursor.
void view_mouse_step(int32_t *dx, int32_t *dy);

// Sets the motion from the mouse; while the right button is held, rotates instead.
void view_mouse_steer(ViewControl *control, double zoom, int32_t dx, int32_t dy);

// Adds the motion from the arrow keys and W, A, S, D. With Ctrl the arrow keys rotate instead.
void view_keys(ViewControl *control, double zoom, double dt);
