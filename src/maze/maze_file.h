#pragma once

#include "maze/maze.h"
#include "support/bytes.h"

// The record of a tree of mazes in a file: a flag byte, the node count, the nodes with the records
// of their submazes in place, `visited`, `bordermask`, the name. Halfwidths and attachments are not
// in it.

// Writes the maze and all below it; the flag byte is 1 for the maze `current` and 0 for all others.
void Maze_write(const Maze *root, ByteWriter *out, const Maze *current);

// Reads a record, which must describe a well-formed tree of mazes of any depth, with symmetric
// rows, plain doors and at most one maze with its flag set; that one goes to `current`, which is
// left alone if there is none. Mazes may be without nodes. Places and times may be any numbers.
// Returns null, with nothing kept, for anything else; whatever the bytes are, nothing behind them
// is read, and there is never more room made than for the nodes that they could hold and one for
// each maze.
Maze *Maze_read(ByteReader *in, Maze **current);
