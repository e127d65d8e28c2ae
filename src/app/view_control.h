#pragma once

#include <cstdint>

#include "world/world.h"

// Mouse, wheel and keyboard turned into a frame's zoom, rotation and motion. Speeds scale with the
// zoom, so that what the user sees moves at the same rate at any distance.
struct ViewControl {
  double yaw;    // radians about z, unbounded
  double pitch;  // radians; 0 looks straight down, -pi straight up; clamped by World_turn_view
  double mx, my; // the frame's motion along the screen's right and up, world units
};

// Wheel notches and the held keys Z and X; dt is the frame time in seconds.
void view_zoom(World *world, double dt);

// How far the mouse has steered, in pixels. A window that isn't fullscreen steers only while the
// left or right button is held, with its cursor hidden; a minimised one not at all.
void view_mouse_step(int32_t *dx, int32_t *dy);

// Motion from the mouse or, while the right button is held, rotation.
void view_mouse_steer(ViewControl *control, double zoom, int32_t dx, int32_t dy);

// Adds the held arrows and W, A, S, D: motion, or rotation by the arrows while Ctrl is held.
void view_keys(ViewControl *control, double zoom, double dt);
