#pragma once

#include <cstddef>

#include "maze/maze.h"

// Memory for the nodes of several mazes of a file. Filling a few large blocks takes far fewer page
// faults than filling a table for each maze. A block is freed with its last user.
struct NodeBlock;

// Gives a maze without nodes memory for `count` nodes. The caller writes them in order and counts
// them in the list, which copies them out if it grows further. The memory is in the block
// `*filling`, null at first, or in a new one, which can replace it. No block has more than
// `max_count` nodes, which must not be less than `count`. False if there is no memory.
bool NodeBlock_lend(NodeBlock **filling, Maze *maze, uint32_t count, size_t max_count);

// Removes a user: a maze, or the reader that fills the block. Null is allowed.
void NodeBlock_release(NodeBlock *block);
