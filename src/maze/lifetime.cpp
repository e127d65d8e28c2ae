#include "maze/lifetime.h"

#include <cstdlib>

#include "maze/attachment.h"
#include "maze/node_block.h"
#include "maze/traversal.h"
#include "support/strings.h"

namespace {

// The records of destroyed mazes, newest first. They are never freed, so a stale address can't come
// to mean a new maze. The chain keeps them reachable for leak checkers.
Maze *destroyed = nullptr;
uint64_t last_serial = 0;

void destroy_one(Maze *maze) {
  GrowList_free(&maze->nodes);
  NodeBlock_release(maze->block);
  maze->block = nullptr;
  std::free(maze->name);
  maze->name = nullptr;
  Attachment_free_all(maze);
  maze->parent = nullptr;
  maze->pool_next = destroyed;
  destroyed = maze;
}

// The maze under `maze` that has to be destroyed first.
Maze *last_leaf(Maze *maze) {
  while (Maze *below = Maze_last_child_before(maze, maze_count(maze)))
    maze = below;
  return maze;
}

// Copies rows, capacity and growth, but not the mirror.
void copy_nodes(GrowList *list, const GrowList *source) {
  list->growth = source->growth;
  list->initial = source->initial;
  GrowList_reserve(list, source->capacity > 0 ? source->capacity : source->count);
  GrowList_append_many(list, source->data, source->count);
}

Maze *copy_one(const Maze *maze) {
  Maze *copy = Maze_new();
  copy_nodes(&copy->nodes, &maze->nodes);
  copy->parent = maze->parent;
  copy->parentnode = maze->parentnode;
  copy->visited = maze->visited;
  copy->bordermask = maze->bordermask;
  copy->halfwidth = maze->halfwidth;
  if (maze->name != nullptr) str_dup_into(&copy->name, maze->name);
  return copy;
}

// Replaces the submaze of a node, which is shared with the source of a copy, by a shallow copy that
// this maze owns.
void own_submaze(Maze *maze, int32_t i) {
  MazeNode &node = maze_nodes(maze)[i];
  if (node.submaze == nullptr) return;
  node.submaze = copy_one(node.submaze);
  node.submaze->parent = maze;
  node.submaze->parentnode = i;
}

} // namespace

Maze *Maze_new() {
  Maze *maze = new Maze{};
  GrowList_init(&maze->nodes, sizeof(MazeNode));
  GrowList_init(&maze->attachments, sizeof(Attachment));
  maze->halfwidth = 0.5;
  last_serial++;
  maze->serial = last_serial;
  return maze;
}

void MazeNode_init(MazeNode *node, double x, double y, double z) {
  node->x = x;
  node->y = y;
  node->z = z;
  node->degree = 0;
  node->self = maze_edge_default;
  node->submaze = nullptr;
}

void Maze_destroy(Maze *maze, int32_t recursive) {
  Maze *at = recursive != 0 ? last_leaf(maze) : maze;
  while (at != maze) {
    Maze *above = at->parent;
    Maze *previous_sibling = Maze_last_child_before(above, at->parentnode);
    destroy_one(at);
    at = previous_sibling != nullptr ? last_leaf(previous_sibling) : above;
  }
  destroy_one(maze);
}

Maze *Maze_copy(const Maze *maze, int32_t recursive) {
  Maze *copy = copy_one(maze);
  if (recursive != 0) Maze_each_node(copy, true, own_submaze);
  return copy;
}

void Maze_append(Maze *a, const Maze *b) {
  const int32_t first = maze_count(a);
  GrowList_append_many(&a->nodes, b->nodes.data, b->nodes.count);
  for (int32_t i = maze_count(a); i-- > first;) {
    MazeNode &node = maze_nodes(a)[i];
    for (uint32_t r = node.degree; r-- > 0;)
      node.nbr[r] += first;
    own_submaze(a, i);
    if (node.submaze != nullptr) Maze_each_node(node.submaze, true, own_submaze);
  }
}

Maze *Maze_merged(const Maze *a, const Maze *b) {
  Maze *merged = Maze_copy(a, 1);
  Maze_append(merged, b);
  return merged;
}
