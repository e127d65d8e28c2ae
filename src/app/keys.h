#pragma once

#include "app/run.h"

// The keys that act once per press: Space, which leads on through the overlays, F3 to F6 for the
// stereo mode, its swap and its depth, and the display switches; and the switches that are on while
// J and F are held.
void keys_switches(Run *run);

// Ctrl and S: a picture of the frame as it stands.
void keys_screenshot();

// The key N: a new tree of mazes instead of the old one, of the mode that Shift and Ctrl add up to,
// with the session clock at 0.
void keys_new_maze(World *world);

// Whether a key that ends the program is down.
bool keys_quit();
