#pragma once

#include <string>

#include "support/bytes.h"
#include "support/file.h"
#include "world/world.h"

// The recovery file of a run, "maze_save.recovery.dat" in the working directory: a recent copy of
// the session, for a run that ends without saving. It is locked during the run; a second run in the
// same folder uses "maze_save.recovery-1.dat", and so on.

constexpr double recovery_period = 60.0; // seconds from the start of a write to the next

struct Recovery {
  std::string path;      // of this run's file; empty if there is none yet
  FileLock *lock;        // on that file
  FileIdentity identity; // of the version that this run wrote

  // The session when it was last compared.
  uint64_t root; // serial number of the root maze
  Pos cur;
  double zoom;

  bool changed;          // the session differs from the file
  bool changed_again;    // the session differs from the write in progress too
  double last_write;     // gfx_clock at the start of the last write, seconds
  bool failure_reported; // a failure is reported once per run
  bool was_hidden;       // the window, in the last frame

  // A write in progress.
  FileReplacement file; // its stream is null if there is none
  GrowList blocks;      // of ByteBlock: the session; blocks that were written are null
  uint32_t next_block;  // the first that was not written

  ByteWriter emergency_writer; // of Recovery_write, when memory can be exhausted
};

// Looks for recovery files that no run has locked. Loads the newest valid one into `world`, unless
// it is older than the saved session, and makes it this run's file. Renames all others and reports
// that to the user. False, with `world` unchanged, if nothing was loaded.
bool Recovery_resume(Recovery *recovery, World *world, const FileIdentity &session);

// Starts to watch a session for changes. Call Recovery_resume first.
void Recovery_start(Recovery *recovery, const World *world);

// Call between frames: looks for changes and writes the file, a part per frame. A write starts when
// the period has passed, and at once after a new maze or when the window gets hidden. `moved`: a
// relaxation has moved nodes. The view is not compared: every run starts with the view from above.
void Recovery_frame(Recovery *recovery, const World *world, bool moved, bool hidden);

// Writes the whole file, if something has changed, and reports that to the user: for an end without
// a save. Needs hardly any memory. False, with errno, on failure.
bool Recovery_write(Recovery *recovery, const World *world);

// Cancels a write in progress and removes its temporary file.
void Recovery_abandon(Recovery *recovery);

// Releases everything. Removes the file if `saved`: the session was saved in this folder.
void Recovery_end(Recovery *recovery, bool saved);
