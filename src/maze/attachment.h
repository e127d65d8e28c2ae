#pragma once

#include <cstdint>

#include "maze/maze.h"

// Derived data that a plot hangs on a maze under a name. Whoever changes a maze drops what became
// stale; the plot that finds its attachment missing builds it anew. Names compare without regard
// to case.

using AttachmentDestructor = void (*)(intptr_t data, Maze *maze);

struct Attachment {
  char *name;                      // owned
  intptr_t data;                   // a pointer or a number, as its creator likes
  AttachmentDestructor destructor; // releases data, leaves other rows alone; may be null
};

// The data of the last row of that name; 0 if there is none.
intptr_t Attachment_find(const Maze *maze, const char *name);

// Appends a row with a copy of `name`, without looking for an older one.
void Attachment_add(Maze *maze, const char *name, intptr_t data, AttachmentDestructor destructor);

// Drops the last row of that name, running its destructor; nothing if there is none.
void Attachment_drop(Maze *maze, const char *name);

// The same on this maze and on all below it.
void Attachment_drop_tree(Maze *maze, const char *name);
