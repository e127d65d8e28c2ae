#include "maze/edit.h"

#include <cassert>

#include "maze/pos.h"

// Nodes are one place up to this distance, 0.75 world units, squared.
static constexpr double weld_distance_squared = 0.5625;

// The node of b on which a node at p comes to lie, or -1.
static int32_t weld_partner(const Maze *b, Vec3 p) {
  const MazeNode *nodes = maze_nodes(b);
  double best_distance = 9e99;
  int32_t best = -1;
  for (int32_t j = maze_count(b); j-- > 0;) {
    const double distance = length_squared(node_position(nodes[j]) - p);
    if (!(distance < best_distance)) continue; // nothing is near a place that isn't finite
    best_distance = distance;
    best = j;
  }
  return best_distance <= weld_distance_squared ? best : -1;
}

// For each node of a the index in the merged maze of its partner, or -1.
static GrowList weld_map(const Maze *a, const Maze *b) {
  GrowList map;
  GrowList_init(&map, sizeof(int32_t));
  for (int32_t i = 0; i < maze_count(a); i++) {
    const int32_t partner = weld_partner(b, node_position(maze_nodes(a)[i]));
    const int32_t merged = partner < 0 ? -1 : maze_count(a) + partner;
    GrowList_append(&map, &merged);
  }
  return map;
}

static void colour_rows(MazeNode &node, int32_t target, uint32_t colour) {
  for (uint32_t r = node.degree; r-- > 0;)
    if (node.nbr[r] == target) node.edge[r].colour = colour;
}

// Moves the far end of row r of node i, whose neighbour is about to go, to its partner y.
static void carry_over(Maze *maze, int32_t i, uint32_t r, int32_t y) {
  MazeNode *nodes = maze_nodes(maze);
  const int32_t x = nodes[i].nbr[r];
  if (nodes[y].degree >= MAZE_MAX_DEGREE) {
    Maze_cut(maze, i, x);
    return;
  }
  // Left standing, the half at x would name i after i has been renumbered.
  const int32_t half = MazeNode_row(nodes[x], i);
  assert(half >= 0);
  MazeNode_remove_row(&nodes[x], static_cast<uint32_t>(half));
  nodes[i].nbr[r] = y;
  MazeNode_append_row(&nodes[y], i);
  const uint32_t colour = nodes[i].edge[r].colour;
  colour_rows(nodes[i], y, colour);
  colour_rows(nodes[y], i, colour);
}

Maze *Maze_weld(const Maze *a, const Maze *b) {
  const int32_t n = maze_count(a);
  GrowList list = weld_map(a, b);
  const int32_t *map = rows<int32_t>(list);
  Maze *welded = Maze_merged(a, b);
  for (int32_t i = 0; i < n; i++) {
    if (map[i] >= 0) continue;
    const MazeNode &node = maze_nodes(welded)[i];
    for (uint32_t r = node.degree; r-- > 0;) {
      if (r >= node.degree) continue; // a cut took two rows at once
      const int32_t x = node.nbr[r];
      if (x < n && map[x] >= 0) carry_over(welded, i, r, map[x]);
    }
  }
  for (int32_t v = n; v-- > 0;)
    if (map[v] >= 0) Maze_delete_node(welded, v);
  GrowList_free(&list);
  return welded;
}
