#pragma once

// The names of session files in the working directory. A stem is followed by "-" and a number.

constexpr const char *session_path = "maze_save.dat";
constexpr const char *session_prefix = "maze_save."; // of all session files
constexpr const char *session_ending = ".dat";
constexpr const char *recovery_path = "maze_save.recovery.dat";
constexpr const char *recovery_stem = "maze_save.recovery"; // of other runs in the same folder
constexpr const char *damaged_stem = "maze_save.damaged";   // a damaged file
constexpr const char *beside_stem =
    "maze_save.beside"; // a session that did not replace the saved one
