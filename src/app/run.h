#pragma once

#include "app/relaxation.h"
#include "app/view_control.h"
#include "world/world.h"

// A run of the program: start-up, the frames, the end.
struct Run {
  World world;
  ViewControl control;
  Relaxation relaxation;
  double last_clock; // seconds, of gfx_clock
};

// Opens the window and makes the session. False if the resolution came out empty.
bool run_start(Run *run);

// One frame; false when it was the last: the window was closed, or Q or Escape is down.
bool run_frame(Run *run);

// Destroys the session and gives the display back.
void run_end(Run *run);

// The whole program; returns its exit status.
int run_program();
