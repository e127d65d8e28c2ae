#pragma once

#include "support/bytes.h"
#include "world/world.h"

// The session in a file: the tree of mazes, the user's place, clock, view, camera and zoom.

// `unreadable`, with errno, is for a file that is there but can't be opened or read, or held in
// memory.
enum class SessionLoad { loaded, absent, damaged, unreadable };

// Replaces the file by the session, whole or not at all. False, with errno, if it can't be written:
// the old file is then as it was. An interrupted call is repeated.
bool World_save(const World *world, const char *path);

// Appends a copy of the session, as blocks to be written later, to a list of ByteBlock. The caller
// frees the bytes of each block.
void World_serialise(const World *world, GrowList *blocks);

// Makes the session of a file. What isn't sound in every part or has holes on the disk is
// `damaged`; the record is then left alone, as it is if there is nothing to read. The user stands
// exactly on the place, every maze has the default halfwidth, and there are no Roamers; a clock,
// view, camera or zoom that isn't finite, a clock below 0 and a zoom that isn't above 0 get the
// value of a new session.
SessionLoad World_load(World *world, const char *path);

// The bytes of the file.
void World_write(const World *world, ByteWriter *out);

// The session that is in all of the bytes; false if they are no sound session.
bool World_read(World *world, ByteReader *in);
