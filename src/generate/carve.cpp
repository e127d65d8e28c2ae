#include "generate/carve.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

#include "maze/edit.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "support/random.h"

// Reverse deletion without a search per edge. A cycle loses the edge that is tried first, so an
// edge stays if and only if the edges tried after it do not connect its ends. A union-find over the
// shuffled edges, from the last trial to the first, finds those that stay.

namespace {

struct EdgePair {
  int32_t a, b; // a below b
};

// Steps from prefetching a cache line to using it.
constexpr size_t ahead = 32;

struct Edges {
  std::unique_ptr<EdgePair[]> pairs; // tried from the last to the first
  size_t count;
  bool doubled; // some pair occurs twice
};

Edges collect_edges(const Maze *maze) {
  const size_t max_edges = maze->nodes.count * size_t{MAZE_MAX_DEGREE} / 2;
  Edges edges = {std::make_unique_for_overwrite<EdgePair[]>(max_edges), 0, false};
  for (int32_t a = 0; a < maze_count(maze); a++) {
    const MazeNode &node = maze_nodes(maze)[a];
    for (uint32_t slot = node.degree; slot-- > 0;) {
      const int32_t b = node.nbr[slot];
      assert(b != a && MazeNode_find_slot(maze_nodes(maze)[b], a) >= 0);
      if (b < a) continue;
      edges.pairs[edges.count++] = {a, b};
      edges.doubled |= std::find(node.nbr, node.nbr + slot, b) != node.nbr + slot;
    }
  }
  return edges;
}

// Fisher-Yates shuffle from the end, including the last draw, which has no effect. Draws are made
// ahead of the swaps, so that the cache lines have arrived.
void shuffle(const Edges &edges) {
  size_t partners[ahead];
  size_t drawn = edges.count; // pairs from here on have a partner
  for (size_t k = edges.count; k-- > 0;) {
    while (drawn > 0 && drawn + ahead > k + 1) {
      drawn--;
      const auto r = static_cast<size_t>(rand_int(static_cast<int32_t>(drawn) + 1));
      partners[drawn % ahead] = r;
      __builtin_prefetch(&edges.pairs[r], 1);
    }
    std::swap(edges.pairs[k], edges.pairs[partners[k % ahead]]);
  }
}

// Marks the copies of doubled pairs, except those that are tried first.
std::vector<bool> later_copies(const Edges &edges) {
  std::vector<size_t> order(edges.count);
  for (size_t k = 0; k < edges.count; k++)
    order[k] = k;
  const EdgePair *pairs = edges.pairs.get();
  std::sort(order.begin(), order.end(), [pairs](size_t k, size_t l) {
    return std::tie(pairs[k].a, pairs[k].b, k) < std::tie(pairs[l].a, pairs[l].b, l);
  });
  std::vector<bool> copies(edges.count, false);
  for (size_t i = 0; i + 1 < edges.count; i++) {
    const EdgePair &here = pairs[order[i]];
    const EdgePair &next = pairs[order[i + 1]];
    copies[order[i]] = here.a == next.a && here.b == next.b;
  }
  return copies;
}

// A forest over the nodes: the parent of a node or, for the root of a set, minus its size.
using Sets = std::unique_ptr<int32_t[]>;

Sets separate_sets(int32_t count) {
  Sets sets = std::make_unique_for_overwrite<int32_t[]>(static_cast<size_t>(count));
  std::fill_n(sets.get(), count, -1);
  return sets;
}

// The root of a node's set; shortens the path to it by half.
int32_t find_set(int32_t *sets, int32_t node) {
  for (int32_t parent = sets[node]; parent >= 0; parent = sets[node]) {
    if (sets[parent] >= 0) sets[node] = sets[parent];
    node = parent;
  }
  return node;
}

// Merges the sets of both ends, the smaller into the larger; false if they are the same.
bool unite(const Sets &sets, EdgePair pair) {
  int32_t a = find_set(sets.get(), pair.a);
  int32_t b = find_set(sets.get(), pair.b);
  if (a == b) return false;
  if (sets[a] > sets[b]) std::swap(a, b);
  sets[a] += sets[b];
  sets[b] = a;
  return true;
}

// The edges of a node in the order of their trials: the neighbour, or ~neighbour if deleted.
struct Trials {
  int32_t to[MAZE_MAX_DEGREE];
};

// The edge's colour at its lower end. Its slots are rewritten if the lower end is below `node`, and
// original otherwise; the colour is the same.
uint32_t lower_colour(const MazeNode *nodes, int32_t node, int32_t neighbour) {
  const MazeNode &lower = nodes[std::min(node, neighbour)];
  const int32_t *slot = std::find(lower.nbr, lower.nbr + lower.degree, std::max(node, neighbour));
  return lower.edge[slot - lower.nbr].colour;
}

// Applies the trials to the list of a node's neighbours: removes each neighbour, which moves the
// last one to its place, and appends it again if the edge stays. Returns how many are left.
uint32_t try_neighbours(int32_t *nbr, uint32_t degree, const Trials &trials) {
  uint32_t left = degree;
  for (uint32_t k = 0; k < degree; k++) {
    const int32_t deleted = trials.to[k] >> 31; // all bits set, or none
    const int32_t to = trials.to[k] ^ deleted;
    left--;
    *std::find(nbr, nbr + left, to) = nbr[left];
    nbr[left] = to;
    left += static_cast<uint32_t>(1 + deleted);
  }
  return left;
}

void rewrite_slots(MazeNode *nodes, int32_t i, const Trials &trials) {
  MazeNode &node = nodes[i];
  int32_t nbr[MAZE_MAX_DEGREE];
  uint32_t colours[MAZE_MAX_DEGREE];
  std::copy_n(node.nbr, node.degree, nbr);
  const uint32_t degree = try_neighbours(nbr, node.degree, trials);
  for (uint32_t slot = 0; slot < degree; slot++)
    colours[slot] = lower_colour(nodes, i, nbr[slot]);
  node.degree = degree;
  for (uint32_t slot = 0; slot < degree; slot++) {
    node.nbr[slot] = nbr[slot];
    node.edge[slot] = {colours[slot], time_never, time_never};
  }
}

// Replaces b by ~b for each edge that is deleted.
void decide(const Edges &edges, const Sets &sets) {
  for (size_t k = 0; k < edges.count; k++) {
    const EdgePair &soon = edges.pairs[std::min(k + ahead, edges.count - 1)];
    __builtin_prefetch(&sets[soon.a], 1);
    __builtin_prefetch(&sets[soon.b], 1);
    EdgePair &pair = edges.pairs[k];
    if (!unite(sets, pair)) pair.b = ~pair.b;
  }
}

// Lists the edges of each node in the order of the trials.
std::unique_ptr<Trials[]> sort_by_node(const Edges &edges, size_t count) {
  auto trials = std::make_unique_for_overwrite<Trials[]>(count);
  std::vector<uint8_t> tried(count, 0);
  for (size_t k = edges.count; k-- > 0;) {
    const EdgePair &soon = edges.pairs[k > ahead ? k - ahead : 0];
    __builtin_prefetch(&trials[static_cast<size_t>(soon.a)], 1);
    __builtin_prefetch(&trials[static_cast<size_t>(std::max(soon.b, ~soon.b))], 1);
    const int32_t deleted = edges.pairs[k].b >> 31; // all bits set, or none
    const auto a = static_cast<size_t>(edges.pairs[k].a);
    const auto b = static_cast<size_t>(edges.pairs[k].b ^ deleted);
    trials[a].to[tried[a]++] = edges.pairs[k].b;
    trials[b].to[tried[b]++] = edges.pairs[k].a ^ deleted;
  }
  return trials;
}

// For a maze without doubled edges: writes the slots of each node once.
void carve_simple(Maze *maze, const Edges &edges) {
  decide(edges, separate_sets(maze_count(maze)));
  const auto trials = sort_by_node(edges, maze->nodes.count);
  for (int32_t i = 0; i < maze_count(maze); i++)
    rewrite_slots(maze_nodes(maze), i, trials[static_cast<size_t>(i)]);
}

// Cuts the edge and, if it stays, joins its ends again, which appends it on both sides.
void try_edge(Maze *maze, EdgePair pair, bool stays) {
  const MazeNode &node = maze_nodes(maze)[pair.a];
  const int32_t slot = MazeNode_find_slot(node, pair.b);
  if (slot < 0) return; // the first trial of a doubled edge removed both
  const uint32_t colour = node.edge[slot].colour;
  Maze_cut(maze, pair.a, pair.b);
  if (!stays) return;
  Maze_join(maze, pair.a, pair.b);
  for (const int32_t end : {pair.a, pair.b}) {
    MazeNode &joined = maze_nodes(maze)[end];
    joined.edge[joined.degree - 1].colour = colour;
  }
}

// For doubled edges: the first trial of a pair decides, and later ones act on what it left.
void carve_doubled(Maze *maze, const Edges &edges) {
  std::vector<bool> stays = later_copies(edges);
  const Sets sets = separate_sets(maze_count(maze));
  for (size_t k = 0; k < edges.count; k++)
    if (!stays[k]) stays[k] = unite(sets, edges.pairs[k]);
  for (size_t k = edges.count; k-- > 0;)
    try_edge(maze, edges.pairs[k], stays[k]);
}

} // namespace

void Maze_carve(Maze *maze) {
  const Edges edges = collect_edges(maze);
  shuffle(edges);
  if (edges.doubled)
    carve_doubled(maze, edges);
  else
    carve_simple(maze, edges);
}

Maze *Maze_carved(const Maze *maze) {
  Maze *carved = Maze_copy(maze, 1);
  Maze_carve(carved);
  return carved;
}
