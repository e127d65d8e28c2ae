#pragma once

#include "app/run.h"

// The session of a run: "maze_save.dat" in the working directory. Every failure is reported in a
// sentence, and no file of the user is lost.

// Resumes the recovery file of a run that ended without saving, else the last session, or makes a
// new one. A file that holds no valid session gets another name; one that can't be read or renamed
// stays, and this run's session is then saved beside it.
void session_start(Run *run);

enum class SessionPlace { nowhere, another_folder, this_folder };

// Saves the session, in place of the old one if that may go: if it is still the one that the run
// started with. Where that fails it tries another name in the folder, the user's data folder and
// the folder for temporary files.
SessionPlace session_save(const Run *run);

// Writes the session to the recovery file, for an ending without a save; where that fails, saves it
// under another name.
void session_save_for_recovery(Run *run);
