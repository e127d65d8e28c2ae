#include "maze/maze.h"

#include <cstdlib>

#include "maze/attachment.h"
#include "maze/walk.h"
#include "support/strings.h"

// The records of destroyed mazes, newest first. They are never released, so that a stale address
// can't come to mean a new maze; the chain keeps them reachable for leak checkers, but no live
// maze, which would hide one that was forgotten.
static Maze *destroyed = nullptr;
static uint64_t last_serial = 0;

Maze *Maze_new() {
  Maze *maze = new Maze{};
  GrowList_init(&maze->nodes, sizeof(MazeNode));
  GrowList_init(&maze->attachments, sizeof(Attachment));
  maze->halfwidth = 0.5;
  maze->serial = ++last_serial;
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

static void release_attachments(Maze *maze) {
  for (uint32_t i = maze->attachments.count; i-- > 0;) {
    const Attachment row = rows<Attachment>(maze->attachments)[i];
    if (row.destructor) row.destructor(row.data, maze);
    std::free(row.name);
  }
  GrowList_free(&maze->attachments);
}

static void destroy_one(Maze *maze) {
  GrowList_free(&maze->nodes);
  std::free(maze->name);
  maze->name = nullptr;
  release_attachments(maze);
  maze->parent = nullptr;
  maze->pool_next = destroyed;
  destroyed = maze;
}

// The first maze to go of the tree under `maze`.
static Maze *deepest(Maze *maze) {
  while (Maze *below = Maze_last_child_before(maze, maze_count(maze)))
    maze = below;
  return maze;
}

void Maze_destroy(Maze *maze, int32_t recursive) {
  Maze *at = recursive ? deepest(maze) : maze;
  while (at != maze) {
    Maze *above = at->parent;
    Maze *previous_sibling = Maze_last_child_before(above, at->parentnode);
    destroy_one(at);
    at = previous_sibling ? deepest(previous_sibling) : above;
  }
  destroy_one(maze);
}

// Takes over the rows of `source` with its capacity and tuning, but not its mirror.
static void copy_nodes(GrowList *list, const GrowList *source) {
  list->growth = source->growth;
  list->initial = source->capacity; // clearing allocates as many rows as `initial` says
  GrowList_clear(list);
  list->initial = source->initial;
  GrowList_append_many(list, source->data, source->count);
}

static Maze *copy_one(const Maze *maze) {
  Maze *copy = Maze_new();
  copy_nodes(&copy->nodes, &maze->nodes);
  copy->parent = maze->parent;
  copy->parentnode = maze->parentnode;
  copy->visited = maze->visited;
  copy->bordermask = maze->bordermask;
  copy->halfwidth = maze->halfwidth;
  if (maze->name) str_dup_into(&copy->name, maze->name);
  return copy;
}

// Replaces the submaze of a node, which is shared with some source, by a shallow copy that belongs
// to this maze.
static void own_submaze(Maze *maze, int32_t i) {
  MazeNode &node = maze_nodes(maze)[i];
  if (!node.submaze) return;
  node.submaze = copy_one(node.submaze);
  node.submaze->parent = maze;
  node.submaze->parentnode = i;
}

Maze *Maze_copy(const Maze *maze, int32_t recursive) {
  Maze *copy = copy_one(maze);
  if (recursive) Maze_each_node(copy, 1, own_submaze);
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
    if (node.submaze) Maze_each_node(node.submaze, 1, own_submaze);
  }
}

Maze *Maze_merged(const Maze *a, const Maze *b) {
  Maze *merged = Maze_copy(a, 1);
  Maze_append(merged, b);
  return merged;
}
