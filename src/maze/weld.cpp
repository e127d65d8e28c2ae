#include "maze/edit.h"

#include <cassert>
#include <cstddef>
#include <vector>

#include "maze/pos.h"
#include "support/point_grid.h"

// Nodes are one place up to this distance, 0.75 world units, squared.
static constexpr double weld_distance_squared = 0.5625;

// Below this many pairs of nodes, looking at all of them is quicker than sorting.
static constexpr size_t few_pairs = 4096;

// The place of the node of b on which a node at p comes to lie, or -1; by looking at all.
static int32_t weld_partner(const std::vector<Vec3> &places, Vec3 p) {
  double best_distance = 9e99;
  size_t best = 0;
  for (size_t j = places.size(); j-- > 0;) {
    const double distance = length_squared(places[j] - p);
    if (!(distance < best_distance)) continue; // nothing is near a place that isn't finite
    best_distance = distance;
    best = j;
  }
  return best_distance <= weld_distance_squared ? static_cast<int32_t>(best) : -1;
}

static std::vector<Vec3> node_places(const Maze *maze) {
  std::vector<Vec3> places(maze->nodes.count);
  for (uint32_t i = 0; i < maze->nodes.count; i++)
    places[i] = node_position(maze_nodes(maze)[i]);
  return places;
}

// For each node of a the index in the merged maze of its partner, or -1.
static std::vector<int32_t> weld_map(const Maze *a, const Maze *b) {
  const std::vector<Vec3> places = node_places(b);
  const bool few = size_t{a->nodes.count} * b->nodes.count <= few_pairs;
  PointGrid grid;
  const bool sorted = !few && PointGrid_build(&grid, places);
  std::vector<int32_t> map(a->nodes.count);
  for (uint32_t i = 0; i < a->nodes.count; i++) {
    const Vec3 p = node_position(maze_nodes(a)[i]);
    const int32_t partner =
        sorted ? PointGrid_nearest(&grid, p, weld_distance_squared) : weld_partner(places, p);
    map[i] = partner < 0 ? -1 : maze_count(a) + partner;
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

void Maze_weld_onto(Maze *a, const Maze *b) {
  const int32_t n = maze_count(a);
  const std::vector<int32_t> partners = weld_map(a, b);
  const int32_t *map = partners.data();
  Maze_append(a, b);
  for (int32_t i = 0; i < n; i++) {
    if (map[i] >= 0) continue;
    const MazeNode &node = maze_nodes(a)[i];
    for (uint32_t r = node.degree; r-- > 0;) {
      if (r >= node.degree) continue; // a cut took two rows at once
      const int32_t x = node.nbr[r];
      if (x < n && map[x] >= 0) carry_over(a, i, r, map[x]);
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
