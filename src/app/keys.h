#pragma once

#include "app/run_state.h"

// Keys that act once per press: Space cycles the overlay, F3 to F6 set the stereo mode, swap and
// depth, letters toggle the display switches. J and F are on while they are held.
void keys_switches(Run *run);

// Ctrl+S saves a screenshot of the current frame.
void keys_screenshot();

// N replaces the tree of mazes and its Roamers. Shift and Ctrl each add 1 to the mode.
void keys_new_maze(Run *run);

// Whether a key that ends the program is down.
bool keys_quit();
