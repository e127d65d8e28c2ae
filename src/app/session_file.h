#pragma once

#include "app/run.h"

// The session of a run: "maze_save.dat" in the working directory. Whatever goes wrong is told in a
// sentence, and what the user has is kept.

// Resumes the recovery file of a run that ended without saving, else the last session, or makes a
// new one. A file that holds no sound session gets another name; one that can't be read or renamed
// stays, and this run's session is then saved beside it.
void start_session(Run *run);

// Saves the session, in place of the old one if that may go: if it is still the one that the run
// started with. Where that fails it tries another name in the folder, the user's data folder and
// the folder for temporary files. False if all failed.
bool save_session(const Run *run);
