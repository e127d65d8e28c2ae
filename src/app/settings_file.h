#pragma once

#include "app/run_state.h"

// The settings of a run: "config.txt" in the working directory. Failures are reported to the user;
// a file that can't be read is not replaced.

// Reads the settings, adds missing ones and writes the file. Sets `windowed`, the coded
// resolution and the switches that have no keys. "Roamers", "Trail" and "Anaglyph" take effect if
// they are there, and are not added.
void settings_start(Run *run);

// Writes the file and frees the settings.
void settings_end(Run *run);
