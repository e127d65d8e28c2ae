#pragma once

#include <cstdint>
#include <string>

constexpr int32_t picture_max_side = 16384; // pixels

// What the command line asks for.
struct Options {
  // The maze.
  std::string kind; // empty: a random kind, as in Vorel
  int32_t side = 0; // size parameter of the kind; 0: the default of the kind
  uint32_t seed = 0;
  bool seeded = false; // whether a seed was given
  std::string load;    // a session to load instead; empty for none
  int32_t walk = 0;    // steps

  // Output; an empty path for none.
  std::string save, picture;
  bool force = false; // replace an existing file
  bool statistics = false;

  // The picture.
  int32_t width = 1280, height = 960; // pixels
  std::string plot = "lines";
  int32_t stereo = 0;
  double zoom = 0; // world units; 0: that of the session
  double yaw = 0, pitch = 0;
  bool turned = false; // whether yaw and pitch were given
  bool whole = false, grid = false, reach = false, lights = false;
  int32_t turntable = 0; // pictures of one turn; 0: one picture
};

enum class OptionsResult { run, done, invalid };

// Reads the command line. `done` after --help and --version, which are then on the standard output;
// `invalid` after one sentence on the standard error.
OptionsResult Options_read(Options *options, int argc, char **argv);
