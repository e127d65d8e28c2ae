#include "maze/traversal.h"

Maze *Maze_last_child_before(const Maze *maze, int32_t end) {
  const MazeNode *nodes = maze_nodes(maze);
  for (int32_t i = end; i-- > 0;)
    if (nodes[i].submaze != nullptr) return nodes[i].submaze;
  return nullptr;
}

Maze *Maze_next(const Maze *root, const Maze *maze) {
  Maze *next = Maze_last_child_before(maze, maze_count(maze));
  for (; next == nullptr && maze != root; maze = maze->parent)
    next = Maze_last_child_before(maze->parent, maze->parentnode);
  return next;
}
