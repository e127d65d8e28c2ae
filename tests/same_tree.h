#pragma once

#include <string>

#include "maze/maze.h"

// A line for each maze and each node, in the order of Maze_next.
std::string tree_text(const Maze *root);

// The first line in which the texts of two trees differ; empty where all fields of all nodes are
// the same. Caches, serial numbers, rows behind the degree and what is above the roots don't count.
std::string tree_difference(const Maze *a, const Maze *b);
