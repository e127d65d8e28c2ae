#pragma once

#include "maze/maze.h"

// Walks through a tree of mazes by its links, from holder to held and back by parent and
// parentnode, so that no depth of the tree is too much. The tree must be well formed, which a
// shallow copy that shares submazes is not. A whole walk takes time in proportion to the nodes.

// The maze that is held by the last node before `end`; null if none of them holds one.
Maze *Maze_last_child_before(const Maze *maze, int32_t end);

// The maze after `maze` in the tree under `root`: each maze before those that it holds, last holder
// first. Null behind the last one. Start with `root` itself.
Maze *Maze_next(const Maze *root, const Maze *maze);

// Calls visit(maze, i) for the nodes of a maze and, with `recursive`, of all mazes below it: last
// node first, and a node before those of the maze that it holds when the call returns.
template <typename Visit> void Maze_each_node(Maze *root, int32_t recursive, const Visit &visit) {
  Maze *maze = root;
  int32_t i = maze_count(root);
  for (;;) {
    while (i > 0) {
      visit(maze, --i);
      Maze *below = recursive != 0 ? maze_nodes(maze)[i].submaze : nullptr;
      if (below == nullptr) continue;
      maze = below;
      i = maze_count(below);
    }
    if (maze == root) return;
    i = maze->parentnode;
    maze = maze->parent;
  }
}
