#pragma once

#include <string>

#include "support/file.h"
#include "world/world.h"

// The recovery file of a run, "maze_save.recovery.dat" in the working directory: the session as it
// was some time ago, for a run that ends before it can save. It is locked while its run goes on; a
// second run in the same folder takes "maze_save.recovery-1.dat" and so on.

constexpr double recovery_period = 60.0; // seconds between the starts of two writes

struct Recovery {
  std::string path;      // this run's file; empty until it has one
  FileLock *lock;        // on it
  FileIdentity identity; // of what this run has put there

  // What the session looked like when it was last compared.
  uint64_t root; // serial number of the root
  Pos cur;
  double zoom;

  bool changed;          // something is not in the file
  bool changed_again;    // something is not in the write in progress either
  double last_write;     // seconds, of gfx_clock, when the last write began
  bool failure_reported; // once in a run
  bool was_hidden;

  // A write in progress.
  FileReplacement file; // its stream is null if there is none
  GrowList blocks;      // of ByteBlock: the session's bytes; those that are written are null
  uint32_t next_block;  // to be written
};

// Looks for recovery files that no run holds. Loads the newest of them that is valid and not older
// than `session`, the saved session, into `world`; it is then this run's file. Every other one gets
// another name and a sentence. False, with `world` left alone, if there was none to resume.
bool Recovery_resume(Recovery *recovery, World *world, const FileIdentity &session);

// Starts to watch a session. Follows Recovery_resume.
void Recovery_start(Recovery *recovery, const World *world);

// Between two frames: notes what has changed and writes the file piece by piece, when it is due or,
// after a new maze or when the window was hidden, at once. `moved` tells that a relaxation has
// moved nodes. The view is not compared: a run starts with the view from above whatever was saved.
void Recovery_frame(Recovery *recovery, const World *world, bool moved, bool hidden);

// Writes the whole file at once, for an ending without a save, if something has changed, and
// reports it. Allocates next to nothing. False, with errno, if that failed.
bool Recovery_write(Recovery *recovery, const World *world);

// Drops a write in progress, with the room that it takes on the disk.
void Recovery_abandon(Recovery *recovery);

// Ends the watch. Removes the file if `saved` tells that the session was saved in this folder.
void Recovery_end(Recovery *recovery, bool saved);
