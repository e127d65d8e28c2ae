#include "maze/edit.h"

#include <cassert>
#include <cstddef>
#include <vector>

#include "maze/lifetime.h"
#include "maze/pos.h"
#include "support/point_grid.h"

namespace {

// 0.75 world units, squared.
constexpr double weld_distance_squared = 0.5625;

// Up to this many pairs of nodes, comparing all pairs is faster than a grid.
constexpr size_t brute_force_pairs = 4096;

// Index of b's node nearest to p within the weld distance, or -1. Brute force.
int32_t nearest_partner(const std::vector<Vec3> &positions, Vec3 p) {
  double best_distance = 9e99;
  size_t best = 0;
  for (size_t j = positions.size(); j-- > 0;) {
    const double distance = length_squared(positions[j] - p);
    if (!(distance < best_distance)) continue; // also if p is not finite
    best_distance = distance;
    best = j;
  }
  return best_distance <= weld_distance_squared ? static_cast<int32_t>(best) : -1;
}

// For each node of a: the index of its partner after appending b, or -1.
std::vector<int32_t> weld_map(const Maze *a, const Maze *b) {
  const std::vector<Vec3> positions = Maze_node_positions(b);
  const bool few = size_t{a->nodes.count} * b->nodes.count <= brute_force_pairs;
  PointGrid grid;
  if (!few) PointGrid_build(&grid, positions);
  std::vector<int32_t> map(a->nodes.count);
  for (uint32_t i = 0; i < a->nodes.count; i++) {
    const Vec3 p = node_position(maze_nodes(a)[i]);
    const int32_t partner =
        few ? nearest_partner(positions, p) : PointGrid_nearest(&grid, p, weld_distance_squared);
    map[i] = partner < 0 ? -1 : maze_count(a) + partner;
  }
  return map;
}

void colour_slots(MazeNode &node, int32_t target, uint32_t colour) {
  for (uint32_t r = node.degree; r-- > 0;)
    if (node.nbr[r] == target) node.edge[r].colour = colour;
}

// Makes the edge in slot r of node i lead to y, the partner of its neighbour.
void redirect_edge(Maze *maze, int32_t i, uint32_t r, int32_t y) {
  MazeNode *nodes = maze_nodes(maze);
  const int32_t x = nodes[i].nbr[r];
  if (nodes[y].degree >= MAZE_MAX_DEGREE) {
    Maze_cut(maze, i, x);
    return;
  }
  // Remove x's half as well: node deletion renumbers i, and a stale half would name another node.
  const int32_t half = MazeNode_find_slot(nodes[x], i);
  assert(half >= 0);
  MazeNode_remove_slot(&nodes[x], static_cast<uint32_t>(half));
  nodes[i].nbr[r] = y;
  MazeNode_append_slot(&nodes[y], i);
  const uint32_t colour = nodes[i].edge[r].colour;
  colour_slots(nodes[i], y, colour);
  colour_slots(nodes[y], i, colour);
}

} // namespace

void Maze_weld_onto(Maze *a, const Maze *b) {
  const int32_t n = maze_count(a);
  const std::vector<int32_t> partners = weld_map(a, b);
  const int32_t *map = partners.data();
  Maze_append(a, b);
  for (int32_t i = 0; i < n; i++) {
    if (map[i] >= 0) continue;
    const MazeNode &node = maze_nodes(a)[i];
    for (uint32_t r = node.degree; r-- > 0;) {
      if (r >= node.degree) continue; // a cut removed two slots
      const int32_t x = node.nbr[r];
      if (x < n && map[x] >= 0) redirect_edge(a, i, r, map[x]);
    }
  }
  for (int32_t v = n; v-- > 0;)
    if (map[v] >= 0) Maze_delete_node(a, v);
}

Maze *Maze_weld(const Maze *a, const Maze *b) {
  Maze *welded = Maze_copy(a, 1);
  Maze_weld_onto(welded, b);
  return welded;
}
