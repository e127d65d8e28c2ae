#pragma once

#include <string>

// The names of session files in the working directory. Those behind a stem are numbered.

constexpr const char *session_path = "maze_save.dat";
constexpr const char *session_ending = ".dat";
constexpr const char *damaged_stem = "maze_save.damaged"; // a file that holds no sound session
constexpr const char *beside_stem = "maze_save.beside";   // a session beside the saved one

// Gives a file that must not be written over a free name of that stem, which is returned; empty,
// with errno, if it can't be renamed.
std::string set_aside(const std::string &path, const char *stem);
