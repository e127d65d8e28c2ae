#include "maze/reach.h"

#include <cassert>
#include <cstdlib>

#include "maze/edit.h"
#include "maze/lifetime.h"
#include "support/memory.h"

namespace {

uint8_t *zeroed_bytes(const Maze *maze) {
  return static_cast<uint8_t *>(memory_zeroed(maze->nodes.count));
}

// State of one search.
struct Frontier {
  GrowList reached; // of int32_t: the indices of all nodes reached, in order
  uint32_t cursor;  // first of them that was not expanded
  uint8_t bit;      // marks reached nodes
};

void start_frontier(Frontier *frontier, int32_t start, uint8_t bit, uint8_t *bytes) {
  GrowList_init(&frontier->reached, sizeof(int32_t));
  GrowList_append(&frontier->reached, &start);
  frontier->cursor = 0;
  frontier->bit = bit;
  bytes[start] = static_cast<uint8_t>(bytes[start] | bit);
}

// Expands the nodes that were reached before the call. Returns true as soon as it meets a node that
// another search has reached.
bool expand_layer(const Maze *maze, Frontier *frontier, uint8_t *bytes) {
  const MazeNode *nodes = maze_nodes(maze);
  const uint32_t end = frontier->reached.count;
  for (; frontier->cursor < end; frontier->cursor++) {
    const MazeNode &node = nodes[rows<int32_t>(frontier->reached)[frontier->cursor]];
    for (uint32_t r = node.degree; r-- > 0;) {
      uint8_t &byte = bytes[node.nbr[r]];
      if ((byte & frontier->bit) != 0) continue;
      GrowList_append(&frontier->reached, &node.nbr[r]);
      byte = static_cast<uint8_t>(byte | frontier->bit);
      if (byte != frontier->bit) return true;
    }
  }
  return false;
}

// Expands two searches in turn, a layer each. See Maze_connected for the results.
int32_t meet(const Maze *maze, Frontier *from_a, Frontier *from_b, uint8_t *bytes, int32_t *out) {
  for (int32_t steps = 1;; steps += 2) {
    if (expand_layer(maze, from_a, bytes)) return *out = steps;
    if (from_a->cursor == from_a->reached.count) {
      *out = static_cast<int32_t>(from_a->reached.count);
      return 0;
    }
    if (expand_layer(maze, from_b, bytes)) return *out = steps + 1;
    if (from_b->cursor == from_b->reached.count) {
      *out = -static_cast<int32_t>(from_b->reached.count);
      return 0;
    }
  }
}

} // namespace

uint8_t *Maze_reach(const Maze *maze, int32_t start) {
  assert(start >= 0 && start < maze_count(maze));
  uint8_t *bytes = zeroed_bytes(maze);
  Frontier frontier;
  start_frontier(&frontier, start, 1, bytes);
  while (frontier.cursor < frontier.reached.count)
    expand_layer(maze, &frontier, bytes);
  GrowList_free(&frontier.reached);
  return bytes;
}

int32_t Maze_connected(const Maze *maze, int32_t a, int32_t b, int32_t *out) {
  assert(a >= 0 && a < maze_count(maze) && b >= 0 && b < maze_count(maze));
  int32_t ignored;
  if (out == nullptr) out = &ignored;
  if (a == b) {
    *out = 0;
    return 1;
  }
  uint8_t *bytes = zeroed_bytes(maze);
  Frontier from_a, from_b;
  start_frontier(&from_a, a, 1, bytes);
  start_frontier(&from_b, b, 2, bytes);
  const int32_t length = meet(maze, &from_a, &from_b, bytes, out);
  GrowList_free(&from_a.reached);
  GrowList_free(&from_b.reached);
  std::free(bytes);
  return length;
}

Maze *Maze_reachable_copy(const Maze *maze, int32_t start) {
  uint8_t *reached = Maze_reach(maze, start);
  Maze *copy = Maze_copy(maze, 0);
  for (int32_t i = maze_count(copy); i-- > 0;)
    if (reached[i] == 0) Maze_delete_node(copy, i);
  std::free(reached);
  return copy;
}
