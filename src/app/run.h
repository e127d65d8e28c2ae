#pragma once

#include "app/recovery.h"
#include "app/relaxation.h"
#include "app/view_control.h"
#include "support/settings.h"
#include "world/world.h"

// A run of the program: start-up, the frames, the end.
struct Run {
  Settings settings;
  bool may_replace_settings; // false where the file must be left alone
  bool settings_failed;      // whether a failure to write them has been told
  bool may_replace_session;  // false where the file must be left alone
  FileIdentity session;      // of the saved session that this run started with
  Recovery recovery;
  bool moved;          // a relaxation has moved nodes in this frame
  int32_t stereo_mode; // 0 to 8; any number from the settings until a key changes it
  int32_t stereo_swap; // 0 or 1
  double stereo_depth;
  World world;
  ViewControl control;
  Relaxation relaxation;
  int32_t helpstate; // 0 to 3: which overlay stands
  double last_clock; // seconds, of gfx_clock
};

// Reads the settings, opens the window and resumes or makes the session. False, after a sentence,
// if the resolution came out empty.
bool run_start(Run *run);

// One frame; false when it was the last: the window was closed, or Q or Escape is down.
bool run_frame(Run *run);

// Saves the session and the settings and gives the display back. False if the session could not be
// saved anywhere.
bool run_end(Run *run);

// The whole program; returns its exit status.
int run_program();
