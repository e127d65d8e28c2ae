#pragma once

#include <cstdint>

#include "maze/maze.h"

// The lifetime of mazes: creation, destruction, copies.

// A new maze without nodes, attachments, parent or name; halfwidth 0.5. Owned by the caller until a
// node holds it.
Maze *Maze_new();

// Sets the position, degree 0, the default colour, no times and no submaze. Leaves nbr and edge as
// they are.
void MazeNode_init(MazeNode *node, double x, double y, double z);

// Frees what the maze owns and, if `recursive` is not 0, first all mazes below it. The record
// itself stays in a pool and is never reused. The holder's submaze field is left as it is.
// Destructors of attachments run after the nodes are freed.
void Maze_destroy(Maze *maze, int32_t recursive);

// A copy without attachments. If `recursive` is 0 the copy shares its submazes with the source and
// must not be destroyed recursively.
Maze *Maze_copy(const Maze *maze, int32_t recursive);

// Appends recursive copies of the nodes of another maze, `b`; their neighbour indices are raised by
// a's node count. No edge joins the two parts.
void Maze_append(Maze *a, const Maze *b);

// The same on a recursive copy of `a`. Owned by the caller.
Maze *Maze_merged(const Maze *a, const Maze *b);
