#pragma once

#include "app/run.h"

// The files of a run: "config.txt" and "maze_save.dat" in the working directory. Whatever goes
// wrong with one of them is told in a sentence on the standard error, and what the user has is
// kept.

// Reads the settings, adds what is missing, and writes the complete file at once. Sets `windowed`
// and the coded resolution.
void start_settings(Run *run);

// Resumes the last session, or makes a new one. A file that holds no sound session is kept under
// another name, so that the end of this run doesn't write over it.
void start_session(Run *run);

// Replaces the session's file.
void save_session(const Run *run);

// Replaces the settings' file and releases the settings.
void end_settings(Run *run);
