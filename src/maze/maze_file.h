#pragma once

#include "maze/maze.h"
#include "support/bytes.h"

// A tree of mazes in a file. The record of a maze: a flag byte, the node count, the nodes, each
// followed by the record of its submaze, then `visited`, `bordermask` and the name. Halfwidths and
// attachments are not saved.

// Writes the maze and all below it. The flag byte is 1 for the maze `current` and 0 for all others.
void Maze_write(const Maze *root, ByteWriter *out, const Maze *current);

// Reads a well-formed tree of any depth, in which no door holds a maze. `current` gets the maze
// whose flag is set; without one it stays as it is. Mazes can be empty; positions and times can be
// any numbers. Returns null for anything else, and if there is no memory (`in->out_of_memory`).
// Never reads past the input, and reserves memory for at most twice the nodes that the input could
// hold, and one per maze.
Maze *Maze_read(ByteReader *in, Maze **current);
