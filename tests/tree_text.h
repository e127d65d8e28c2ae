#pragma once

#include <string>

#include "maze/maze.h"

// All fields of all nodes: a line for each maze and each node, in the order of Maze_next. Without
// attachments, serial numbers, unused slots and what is above the root.
std::string tree_text(const Maze *root);
