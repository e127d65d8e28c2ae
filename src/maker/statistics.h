#pragma once

#include <cstdint>

#include "maze/maze.h"

// What can be counted in a tree of mazes.
struct Statistics {
  int64_t nodes;        // of all mazes, holders included
  int64_t mazes;        // the root included
  int64_t levels;       // of nesting; 1 without submazes
  int64_t dead_ends;    // plain nodes with a single way out
  int64_t longest_path; // steps of the longest shortest path; exact in a graph without cycles
};

// Takes time in proportion to the nodes, and memory for one number and one place per node.
Statistics Statistics_of(Maze *root);
