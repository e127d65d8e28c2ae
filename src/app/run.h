#pragma once

#include "app/run_state.h"

// Reads the settings, opens the window, and resumes or creates the session. False, after a sentence
// to the user, if the resolution gives no window.
bool run_start(Run *run);

// Runs one frame. False if it was the last: the window was closed, or Q or Escape is down.
bool run_frame(Run *run);

// Saves the session and the settings and closes the window. False if the session is not saved.
bool run_end(Run *run);

// Runs the program; returns its exit status.
int run_program();
