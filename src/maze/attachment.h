#pragma once

#include <cstdint>

#include "maze/maze.h"

// Data that a plot computed from a maze, kept with the maze under a name. Code that changes a maze
// drops the attachments that became stale; the plot rebuilds a missing one. Names ignore case and
// are listed in maze/attachment_names.h.

using AttachmentDestructor = void (*)(intptr_t data, Maze *maze);

// Notes that times of a node or of its edges have changed.
using AttachmentTouch = void (*)(intptr_t data, int32_t node);

// Computes what was deferred for a node, since a node that it is joined to will move.
using AttachmentCompute = void (*)(intptr_t data, int32_t node);

struct Attachment {
  char *name;                         // owned
  intptr_t data;                      // a pointer or a number
  AttachmentDestructor destructor;    // frees the data and changes no other attachment; may be null
  AttachmentTouch touch;              // may be null
  AttachmentCompute compute_deferred; // may be null
};

// The data of the last attachment with that name; 0 if there is none.
intptr_t Attachment_find(const Maze *maze, const char *name);

// Appends an attachment with a copy of `name`. Older ones with that name stay.
void Attachment_add(Maze *maze, const char *name, intptr_t data, AttachmentDestructor destructor,
                    AttachmentTouch touch = nullptr, AttachmentCompute compute_deferred = nullptr);

// Calls `touch` of all attachments that have it.
void Attachment_touch(const Maze *maze, int32_t node);

// Calls the destructor of the last attachment with that name and removes it, if there is one.
void Attachment_drop(Maze *maze, const char *name);

// The same for this maze and all mazes below it.
void Attachment_drop_tree(Maze *maze, const char *name);

// Call before the nodes of a maze, and of all mazes below it, move: computes what attachments of
// joined nodes in other mazes have deferred.
void Attachment_before_move(Maze *maze);

// Call afterwards: drops what the move made stale, from this maze and all mazes below it.
void Attachment_after_move(Maze *maze);

// Frees the list of attachments of a maze that is destroyed; the last one goes first.
void Attachment_free_all(Maze *maze);
