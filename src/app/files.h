#pragma once

#include "app/run.h"

// The files of a run: "config.txt" and "maze_save.dat" in the working directory. Whatever goes
// wrong with one of them is told in a sentence, and what the user has is kept.

// Reads the settings, adds what is missing, and writes the complete file at once. Sets `windowed`
// and the coded resolution.
void start_settings(Run *run);

// Resumes the last session, or makes a new one. A file that holds no sound session gets another
// name; one that can't be read or renamed stays, and this run's session is then saved beside it.
void start_session(Run *run);

// Saves the session, in place of the old one if that may go.
void save_session(const Run *run);

// Replaces the settings' file and releases the settings.
void end_settings(Run *run);
