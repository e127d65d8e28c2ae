#pragma once

#include "app/recovery.h"
#include "app/relaxation.h"
#include "app/view_control.h"
#include "support/settings.h"
#include "world/world.h"

// The state of a run of the program, from its start to its end.
struct Run {
  Settings settings;
  bool may_replace_settings; // false if the file must stay as it is
  bool settings_failed;      // a failure to write them was reported
  bool may_replace_session;  // false if the file must stay as it is
  FileIdentity session;      // of the saved session at the start of the run
  Recovery recovery;
  bool moved;          // a relaxation has moved nodes in this frame
  int32_t stereo_mode; // a StereoMode, but any number from the settings until a key changes it
  int32_t stereo_swap; // 0 or 1
  double stereo_depth;
  uint32_t roamers; // number of Roamers, 0 to max_roamers
  World world;
  ViewControl control;
  Relaxation relaxation;
  int32_t helpstate; // page of the overlay: 0 to 3
  double last_clock; // gfx_clock at the last frame, seconds
};
