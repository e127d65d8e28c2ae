#pragma once

#include "support/bytes.h"
#include "world/world.h"

// The Roamers in the file of a session. An optional last block, which older readers ignore. It has
// the letters "ROAM", the number of rows, and 32 bytes for each row: timer, period, and the maze
// and node of `cur` and of `prev`. The number of a maze is that of the mazes before it in the order
// of Maze_next; 0xFFFFFFFF is none.

// Writes the block, or nothing if there are no Roamers, or no memory to number the mazes: a session
// is also saved when memory is exhausted.
void Roamers_write(const World *world, ByteWriter *out);

// Reads the rest of a file into the empty list of Roamers of a world whose tree has been read. The
// list stays empty if that is not exactly one valid block. False only on a failure to read.
bool Roamers_read(World *world, ByteReader *in);
