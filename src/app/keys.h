#pragma once

#include "world/world.h"

// The keys that act once per press: display switches.
void keys_switches();

// The key N: a new tree of mazes instead of the old one, of the mode that Shift and Ctrl add up to,
// with the session clock at 0.
void keys_new_maze(World *world);

// Whether a key that ends the program is down.
bool keys_quit();
