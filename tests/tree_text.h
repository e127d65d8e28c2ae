#pragma once

#include <string>

#include "maze/maze.h"

// All fields of all nodes: a line for each maze and each node, in the order of Maze_next. Caches,
// serial numbers, rows behind the degree and what is above the root don't count.
std::string tree_text(const Maze *root);
