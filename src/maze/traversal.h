#pragma once

#include "maze/maze.h"

// Traversals of a tree of mazes, without recursion, since a tree can be of any depth. They follow
// parent and parentnode, so a shallow copy that shares submazes can't be traversed. A whole
// traversal is linear in the number of nodes.

// The submaze of the last node before `end` that has one; null if none has.
Maze *Maze_last_child_before(const Maze *maze, int32_t end);

// The maze after `maze` in the preorder of the tree, where submazes come from the last node to the
// first. Null after the last maze. Start with `root`.
Maze *Maze_next(const Maze *root, const Maze *maze);

// Calls visit(maze, i) for the nodes of a maze, last node first. If `recursive`, the nodes of a
// submaze follow its holder; visit may replace that submaze.
template <typename Visit> void Maze_each_node(Maze *root, bool recursive, const Visit &visit) {
  Maze *maze = root;
  int32_t i = maze_count(root);
  for (;;) {
    while (i > 0) {
      i--;
      visit(maze, i);
      Maze *below = recursive ? maze_nodes(maze)[i].submaze : nullptr;
      if (below == nullptr) continue;
      maze = below;
      i = maze_count(below);
    }
    if (maze == root) return;
    i = maze->parentnode;
    maze = maze->parent;
  }
}
