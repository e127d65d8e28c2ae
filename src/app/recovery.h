#pragma once

#include <string>

#include "support/file.h"
#include "world/world.h"

// The recovery file of a run, "maze_save.recovery.dat" in the working directory: the session as it
// was some time ago, for a run that ends before it can save. It is locked while its run goes on; a
// second run in the same folder takes "maze_save.recovery-1.dat" and so on.

constexpr double recovery_period = 60.0; // seconds between two writes

struct Recovery {
  std::string path;      // this run's file; empty until it has one
  FileLock *lock;        // on it
  FileIdentity identity; // of what this run has put there

  // What the session looked like when it was last compared.
  uint64_t root; // serial number of the root
  Pos cur;
  double zoom;

  bool changed;          // something is not in the file yet
  double last_write;     // seconds, of gfx_clock
  bool failure_reported; // once in a run
  bool was_hidden;

  // A write in progress.
  FileReplacement file; // its stream is null if there is none
  GrowList blocks;      // of ByteBlock: the session's bytes
  uint32_t next_block;  // to be written
};

// Looks for recovery files that no run holds. Loads the newest of them that is sound and not older
// than `session`, the saved session, into `world`; it is then this run's file. Every other one gets
// another name and a sentence. False, with `world` left alone, if there was none to resume.
bool Recovery_resume(Recovery *recovery, World *world, const FileIdentity &session);

// Starts to watch a session. Follows Recovery_resume.
void Recovery_start(Recovery *recovery, const World *world);

// Between two frames: notes what has changed and writes the file piece by piece, when it is due or,
// after a new maze or when the window was hidden, at once. `relaxed` tells that nodes were moved.
// The view is not compared: a session starts with the view from above whatever was saved.
void Recovery_frame(Recovery *recovery, const World *world, bool relaxed, bool hidden);

// Writes the whole file at once, for an ending without a save. Does nothing if nothing has changed.
void Recovery_write(Recovery *recovery, const World *world);

// Removes the file, if `saved` tells that the session is saved elsewhere, and releases the record.
void Recovery_end(Recovery *recovery, bool saved);
