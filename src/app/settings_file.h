#pragma once

#include "app/run.h"

// The settings of a run: "config.txt" in the working directory. Errors are reported, and what the
// user has is kept.

// Reads the settings, adds what is missing, and writes the complete file at once. Sets `windowed`
// and the coded resolution.
void settings_start(Run *run);

// Replaces the settings' file and releases the settings.
void settings_end(Run *run);
