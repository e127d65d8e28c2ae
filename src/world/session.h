#pragma once

#include <cstddef>
#include <cstdint>

#include "world/world.h"

// The session in a file: the tree of mazes, the user's place, clock, view, camera and zoom.

enum class SessionLoad { loaded, absent, damaged };

// Replaces the file by the session, whole or not at all. False, with errno, if it can't be written:
// the old file is then as it was.
bool World_save(const World *world, const char *path);

// Makes the session of a file. What is no sound session, or can't be read, is `damaged`, and the
// record is left alone, as it is if there is no such file. The user stands exactly on the place,
// every maze has the default halfwidth, and there are no Roamers; a clock, view, camera or zoom
// that isn't finite gets the value of a new session.
SessionLoad World_load(World *world, const char *path);

// The same from the bytes of a file; false if they are no sound session.
bool World_from_bytes(World *world, const uint8_t *bytes, size_t size);
