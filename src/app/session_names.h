#pragma once

// The names of session files in the working directory. Those behind a stem are numbered.

constexpr const char *session_path = "maze_save.dat";
constexpr const char *session_prefix = "maze_save."; // of all of them
constexpr const char *session_ending = ".dat";
constexpr const char *recovery_path = "maze_save.recovery.dat";
constexpr const char *recovery_stem = "maze_save.recovery"; // of a further run in the folder
constexpr const char *damaged_stem = "maze_save.damaged";   // a file that holds no valid session
constexpr const char *beside_stem = "maze_save.beside";     // a session beside the saved one
