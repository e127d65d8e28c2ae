#include "maze/edit.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <utility>

#include "support/file.h"
#include "support/report.h"

namespace {

[[maybe_unused]] bool has_node(const Maze *maze, int32_t i) {
  return i >= 0 && i < maze_count(maze);
}

void remove_slots(MazeNode &node, int32_t target) {
  for (uint32_t r = node.degree; r-- > 0;)
    if (node.nbr[r] == target) MazeNode_remove_slot(&node, r);
}

void renumber_slots(MazeNode &node, int32_t from, int32_t to) {
  for (uint32_t r = node.degree; r-- > 0;)
    if (node.nbr[r] == from) node.nbr[r] = to;
}

void swap_targets(MazeNode &node, int32_t a, int32_t b) {
  for (uint32_t r = node.degree; r-- > 0;) {
    if (node.nbr[r] == a)
      node.nbr[r] = b;
    else if (node.nbr[r] == b)
      node.nbr[r] = a;
  }
}

// The node nearest to p with index `first` or more; the highest index among equals.
int32_t nearest_from(const Maze *maze, int32_t first, Vec3 p) {
  const MazeNode *nodes = maze_nodes(maze);
  double best_distance = 1e20;
  int32_t best = first;
  for (int32_t i = maze_count(maze); i-- > first;) {
    const double distance = length_squared(node_position(nodes[i]) - p);
    if (!(distance < best_distance)) continue;
    best_distance = distance;
    best = i;
  }
  return best;
}

// Writes the errors of one node and returns the kind of the last one, or `kind`.
int32_t dump_errors(FILE *file, const MazeNode &node, int32_t i, int32_t kind) {
  for (uint32_t r = 0; r < node.degree; r++) {
    if (node.nbr[r] == i) {
      std::fprintf(file, "ERROR: node %d is joined to itself\n", i);
      kind = 1;
    }
    for (uint32_t q = 0; q < r; q++) {
      if (node.nbr[q] != node.nbr[r]) continue;
      std::fprintf(file, "ERROR: node %d is joined to %d twice\n", i, node.nbr[r]);
      kind = 2;
    }
  }
  return kind;
}

} // namespace

void MazeNode_append_slot(MazeNode *node, int32_t target) {
  assert(node->degree < MAZE_MAX_DEGREE);
  node->nbr[node->degree] = target;
  node->edge[node->degree] = maze_edge_default;
  node->degree++;
}

void MazeNode_remove_slot(MazeNode *node, uint32_t r) {
  assert(r < node->degree);
  node->degree--;
  node->nbr[r] = node->nbr[node->degree];
  node->edge[r] = node->edge[node->degree];
}

void Maze_join(Maze *maze, int32_t a, int32_t b) {
  assert(has_node(maze, a) && has_node(maze, b) && a != b);
  MazeNode *nodes = maze_nodes(maze);
  if (nodes[a].degree >= MAZE_MAX_DEGREE || nodes[b].degree >= MAZE_MAX_DEGREE) return;
  MazeNode_append_slot(&nodes[a], b);
  MazeNode_append_slot(&nodes[b], a);
}

void Maze_cut(Maze *maze, int32_t a, int32_t b) {
  assert(has_node(maze, a) && has_node(maze, b));
  MazeNode *nodes = maze_nodes(maze);
  remove_slots(nodes[a], b);
  remove_slots(nodes[b], a);
}

void Maze_delete_node(Maze *maze, int32_t i) {
  assert(has_node(maze, i));
  MazeNode *nodes = maze_nodes(maze);
  // A cut removes doubled edges at once, so the degree can drop by more than 1.
  while (nodes[i].degree > 0)
    Maze_cut(maze, i, nodes[i].nbr[nodes[i].degree - 1]);
  const int32_t last = maze_count(maze) - 1;
  if (last != i)
    for (uint32_t r = nodes[last].degree; r-- > 0;)
      renumber_slots(nodes[nodes[last].nbr[r]], last, i);
  GrowList_remove(&maze->nodes, static_cast<uint32_t>(i));
}

void Maze_swap_nodes(Maze *maze, int32_t a, int32_t b) {
  assert(has_node(maze, a) && has_node(maze, b));
  MazeNode *nodes = maze_nodes(maze);
  // A common neighbour is renumbered only once: a second pass would undo the first.
  int32_t touched[2 * MAZE_MAX_DEGREE];
  int32_t *end = std::copy_n(nodes[a].nbr, nodes[a].degree, touched);
  end = std::copy_n(nodes[b].nbr, nodes[b].degree, end);
  std::sort(touched, end);
  end = std::unique(touched, end);
  for (const int32_t *t = touched; t != end; t++)
    swap_targets(nodes[*t], a, b);
  std::swap(nodes[a], nodes[b]);
}

void Maze_align_doors(Maze *maze) {
  if (maze->parent == nullptr) return;
  const MazeNode *around = maze_nodes(maze->parent);
  const MazeNode &holder = around[maze->parentnode];
  assert(holder.degree <= maze->nodes.count);
  const uint32_t doors = std::min(holder.degree, maze->nodes.count);
  for (uint32_t r = 0; r < doors; r++) {
    const int32_t door = static_cast<int32_t>(r);
    Maze_swap_nodes(maze, door, nearest_from(maze, door, node_position(around[holder.nbr[r]])));
  }
}

int32_t Maze_dump(const Maze *maze, const char *path, const char *title) {
  FILE *file = file_fopen(path, "a");
  if (file == nullptr) {
    report_sentence("the dump of the maze could not be written to \"%s\"", path);
    return -1;
  }
  std::fprintf(file, "---------- %s\n%d nodes\n", title, maze_count(maze));
  int32_t kind = 0;
  for (int32_t i = 0; i < maze_count(maze); i++) {
    const MazeNode &node = maze_nodes(maze)[i];
    std::fprintf(file, "Node %d is joined to", i);
    for (uint32_t r = 0; r < node.degree; r++)
      std::fprintf(file, " %d", node.nbr[r]);
    std::fprintf(file, "\n");
    kind = dump_errors(file, node, i, kind);
  }
  if (file_close_written(file, std::ferror(file) == 0)) return kind;
  report_sentence("the dump of the maze could not be written to \"%s\"", path);
  return -1;
}
