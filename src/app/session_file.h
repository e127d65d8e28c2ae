#pragma once

#include "app/run_state.h"

// The session of a run: "maze_save.dat" in the working directory. All failures are reported to the
// user, and no file of the user is lost.

// Resumes the recovery file of a run that ended without saving, else the saved session, else starts
// a new one. A damaged file is renamed. A file that can't be read or renamed stays, and this run
// will save its session under another name.
void session_start(Run *run);

// From the worst to the best.
enum class SessionPlace { nowhere, temporary_folder, data_folder, this_folder };

// Saves the session. Replaces the file only if it is still the one that the run started with.
// Otherwise, or on failure, tries another name in this folder, then the user's data folder, then
// the folder for temporary files.
SessionPlace session_save(const Run *run);

// Saves a session that was saved in the data folder under its usual name after all, if that
// succeeds now: without the recovery file there can be room on the disk.
void session_save_again(const Run *run);

// Writes the session to the recovery file, for an end without a save. On failure saves it under
// another name.
void session_save_for_recovery(Run *run);
