#pragma once

#include "support/bytes.h"
#include "world/world.h"

// The session in a file: the tree of mazes, the user's node, clock, view, camera and zoom, and
// the Roamers.

// `unreadable`, with errno: the file exists, but can't be opened or read, or memory is too small.
enum class SessionLoad { loaded, absent, damaged, unreadable };

// Replaces the file, whole or not at all. False, with errno, on failure; the old file is then
// unchanged. A write that a signal interrupts is repeated.
bool World_save(const World *world, const char *path);

// Appends a copy of the session, as blocks to be written later, to a list of ByteBlock. The caller
// frees the bytes of each block.
void World_serialise(const World *world, GrowList *blocks);

// Reads a session. Anything malformed, and a sparse file, gives `damaged`. `world` changes only on
// `loaded`: it then has no offset, and all mazes have the default halfwidth. A clock that is
// negative or not finite, a zoom that is not positive and finite, and a view or camera that is not
// finite get the values of a new session. If the bytes behind the last block are not exactly valid
// Roamers, there are none, and the rest is loaded.
SessionLoad World_load(World *world, const char *path);

// Writes the bytes of the file and flushes them. `out->failed` and errno tell of a failure.
void World_write(const World *world, ByteWriter *out);

// Reads a session up to the end of the input. False, with `world` unchanged, if it is malformed, if
// reading fails (ferror), or if there is no memory (`in->out_of_memory`). Does not free what
// `world` held before.
bool World_read(World *world, ByteReader *in);
