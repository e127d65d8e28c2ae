#include "generate/carve.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstddef>
#include <memory>
#include <numeric>
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

// Half of an edge, as one number: its node times MAZE_MAX_DEGREE plus its slot.
using Half = uint32_t;

constexpr Half half_at(int32_t node, int slot) {
  return static_cast<Half>(node) * MAZE_MAX_DEGREE + static_cast<Half>(slot);
}
constexpr int32_t node_of(Half half) {
  return static_cast<int32_t>(half / MAZE_MAX_DEGREE);
}
constexpr uint32_t slot_of(Half half) {
  return half % MAZE_MAX_DEGREE;
}

struct Edge {
  Half lower, upper; // at the node with the lower index, and at the other
};

struct Edges {
  std::unique_ptr<Edge[]> all; // tried from the last to the first
  size_t count;
  bool doubled; // some nodes are joined twice
};

// Steps from prefetching a cache line to using it.
constexpr size_t prefetch_distance = 32;

// The neighbours of a node in the order of its slots, then -1.
struct Neighbours {
  int32_t node[MAZE_MAX_DEGREE];
};

// Without colours and times, they take few cache lines.
std::unique_ptr<Neighbours[]> collect_neighbours(const Maze *maze) {
  auto table = std::make_unique_for_overwrite<Neighbours[]>(maze->nodes.count);
  for (uint32_t i = 0; i < maze->nodes.count; i++) {
    const MazeNode &node = maze_nodes(maze)[i];
    for (uint32_t slot = 0; slot < MAZE_MAX_DEGREE; slot++)
      table[i].node[slot] = slot < node.degree ? node.nbr[slot] : -1;
  }
  return table;
}

// The slots that lead to the target; bit s is slot s. Not inlined, since GCC turns the loop into
// vector instructions only in a function by itself.
[[gnu::noinline]] uint32_t slots_to(const Neighbours &neighbours, int32_t target) {
  constexpr int32_t bit[MAZE_MAX_DEGREE] = {1, 2, 4, 8, 16, 32, 64, 128};
  int32_t bits = 0;
  for (uint32_t slot = 0; slot < MAZE_MAX_DEGREE; slot++)
    bits |= neighbours.node[slot] == target ? bit[slot] : 0;
  return static_cast<uint32_t>(bits);
}

// Appends the edge in a slot of node a, and gives both halves the colour of the lower one.
void collect_edge(Edges *edges, MazeNode *nodes, const Neighbours *table, int32_t a, int slot) {
  const int32_t b = table[a].node[slot];
  const uint32_t back_slots = slots_to(table[b], a);
  assert(b != a && back_slots != 0);
  edges->doubled |= (back_slots & (back_slots - 1)) != 0; // two bits or more
  const int back = std::countr_zero(back_slots);
  edges->all[edges->count++] = {half_at(a, slot), half_at(b, back)};
  nodes[b].edge[back].colour = nodes[a].edge[slot].colour;
}

Edges collect_edges(Maze *maze) {
  assert(maze->nodes.count <= UINT32_MAX / MAZE_MAX_DEGREE);
  const size_t max_edges = maze->nodes.count * size_t{MAZE_MAX_DEGREE} / 2;
  Edges edges = {std::make_unique_for_overwrite<Edge[]>(max_edges), 0, false};
  const auto table = collect_neighbours(maze);
  for (int32_t a = 0; a < maze_count(maze); a++)
    for (int slot = MAZE_MAX_DEGREE; slot-- > 0;)
      if (table[static_cast<size_t>(a)].node[slot] >= a)
        collect_edge(&edges, maze_nodes(maze), table.get(), a, slot);
  return edges;
}

// Fisher-Yates shuffle from the end, including the last draw, which has no effect. Draws are made
// ahead of the swaps, so that the cache lines have arrived.
void shuffle(const Edges &edges) {
  size_t partners[prefetch_distance];
  size_t drawn = edges.count; // edges from here on have a partner
  for (size_t k = edges.count; k-- > 0;) {
    while (drawn > 0 && drawn + prefetch_distance > k + 1) {
      drawn--;
      const auto r = static_cast<size_t>(rand_int(static_cast<int32_t>(drawn) + 1));
      partners[drawn % prefetch_distance] = r;
      __builtin_prefetch(&edges.all[r], 1);
    }
    std::swap(edges.all[k], edges.all[partners[k % prefetch_distance]]);
  }
}

// The nodes of an edge, the same for each copy of a doubled one.
std::pair<int32_t, int32_t> ends_of(Edge edge) {
  return {node_of(edge.lower), node_of(edge.upper)};
}

// Marks the copies of doubled edges, except those that are tried first.
std::vector<bool> later_copies(const Edges &edges) {
  std::vector<size_t> order(edges.count);
  std::iota(order.begin(), order.end(), size_t{0});
  const Edge *all = edges.all.get();
  std::sort(order.begin(), order.end(), [all](size_t k, size_t l) {
    return std::pair(ends_of(all[k]), k) < std::pair(ends_of(all[l]), l);
  });
  std::vector<bool> copies(edges.count, false);
  for (size_t i = 0; i + 1 < edges.count; i++)
    copies[order[i]] = ends_of(all[order[i]]) == ends_of(all[order[i + 1]]);
  return copies;
}

// A forest over the nodes, a tree for each set: the parent of a node; a root is its own parent.
using Sets = std::unique_ptr<int32_t[]>;

Sets separate_sets(int32_t count) {
  Sets sets = std::make_unique_for_overwrite<int32_t[]>(static_cast<size_t>(count));
  std::iota(sets.get(), sets.get() + count, 0);
  return sets;
}

// The root of a node's set. Climbs and shortens the path by three parents at a time. Most paths are
// not longer, so the branch is predicted.
int32_t find_set(int32_t *sets, int32_t node) {
  do
    node = sets[node] = sets[sets[sets[node]]];
  while (sets[node] != node);
  return node;
}

// Merges the sets of both ends; false if they are the same. The random order of the edges keeps the
// paths short without counting the sets' sizes.
bool unite(const Sets &sets, Edge edge) {
  const int32_t a = find_set(sets.get(), node_of(edge.lower));
  const int32_t b = find_set(sets.get(), node_of(edge.upper));
  sets[std::min(a, b)] = std::max(a, b);
  return a != b;
}

// Whether each edge stays.
std::unique_ptr<bool[]> decide(const Edges &edges, const Sets &sets) {
  auto stays = std::make_unique_for_overwrite<bool[]>(edges.count);
  for (size_t k = 0; k < edges.count; k++) {
    const Edge soon = edges.all[std::min(k + prefetch_distance, edges.count - 1)];
    __builtin_prefetch(&sets[node_of(soon.lower)], 1);
    __builtin_prefetch(&sets[node_of(soon.upper)], 1);
    stays[k] = unite(sets, edges.all[k]);
  }
  return stays;
}

// The slots of a node in their new order, as hexadecimal digits from the lowest. The number of
// those in use is in the upper half.
using SlotOrder = uint64_t;

constexpr uint32_t slots_in_order = 0x76543210;

constexpr SlotOrder slot_order(uint32_t digits, uint32_t degree) {
  return SlotOrder{degree} << 32 | digits;
}

// The shift of the lowest digit that is equal to `digit`; there must be one.
int find_digit(uint32_t digits, uint32_t digit) {
  constexpr uint32_t ones = 0x11111111;
  const uint32_t others = digits ^ digit * ones; // 0 at the digit
  // Subtracting 1 from a 0 sets its top bit. Above the lowest 0, the borrow may set others.
  const uint32_t top_bits = (others - ones) & ~others & ones << 3;
  return std::countr_zero(top_bits) - 3;
}

// Removes a slot, which moves the last one to its place, and appends it again if the edge stays.
SlotOrder try_slot(SlotOrder order, uint32_t slot, bool stays) {
  const auto digits = static_cast<uint32_t>(order);
  const auto left = static_cast<uint32_t>(order >> 32) - 1;
  const uint32_t difference = (digits >> 4 * left & 15) ^ slot; // of the two that are swapped
  const uint32_t swapped = digits ^ difference << find_digit(digits, slot) ^ difference << 4 * left;
  return slot_order(swapped, stays ? left + 1 : left);
}

std::unique_ptr<SlotOrder[]> try_edges(const Maze *maze, const Edges &edges, const bool *stays) {
  auto orders = std::make_unique_for_overwrite<SlotOrder[]>(maze->nodes.count);
  for (uint32_t i = 0; i < maze->nodes.count; i++)
    orders[i] = slot_order(slots_in_order, maze_nodes(maze)[i].degree);
  for (size_t k = edges.count; k-- > 0;) {
    const Edge soon = edges.all[k > prefetch_distance ? k - prefetch_distance : 0];
    __builtin_prefetch(&orders[node_of(soon.lower)], 1);
    __builtin_prefetch(&orders[node_of(soon.upper)], 1);
    for (const Half half : {edges.all[k].lower, edges.all[k].upper}) {
      SlotOrder &order = orders[node_of(half)];
      order = try_slot(order, slot_of(half), stays[k]);
    }
  }
  return orders;
}

void rewrite_slots(MazeNode &node, SlotOrder order) {
  int32_t nbr[MAZE_MAX_DEGREE];
  uint32_t colours[MAZE_MAX_DEGREE];
  const auto degree = static_cast<uint32_t>(order >> 32);
  for (uint32_t slot = 0; slot < degree; slot++) {
    const uint32_t old_slot = order >> 4 * slot & 15;
    nbr[slot] = node.nbr[old_slot];
    colours[slot] = node.edge[old_slot].colour;
  }
  node.degree = degree;
  for (uint32_t slot = 0; slot < degree; slot++) {
    node.nbr[slot] = nbr[slot];
    node.edge[slot] = {colours[slot], time_never, time_never};
  }
}

// For a maze without doubled edges: writes the slots of each node once.
void carve_simple(Maze *maze, const Edges &edges) {
  const auto stays = decide(edges, separate_sets(maze_count(maze)));
  const auto orders = try_edges(maze, edges, stays.get());
  for (int32_t i = 0; i < maze_count(maze); i++)
    rewrite_slots(maze_nodes(maze)[i], orders[static_cast<size_t>(i)]);
}

// Cuts the edge and, if it stays, joins its ends again, which appends it on both sides.
void try_edge(Maze *maze, Edge edge, bool stays) {
  const auto [a, b] = ends_of(edge);
  const MazeNode &node = maze_nodes(maze)[a];
  const int32_t slot = MazeNode_find_slot(node, b);
  if (slot < 0) return; // the first trial of a doubled edge removed both
  const uint32_t colour = node.edge[slot].colour;
  Maze_cut(maze, a, b);
  if (!stays) return;
  Maze_join(maze, a, b);
  for (const int32_t end : {a, b}) {
    MazeNode &joined = maze_nodes(maze)[end];
    joined.edge[joined.degree - 1].colour = colour;
  }
}

// For doubled edges: the first trial of a pair decides, and later ones act on what it left.
void carve_doubled(Maze *maze, const Edges &edges) {
  std::vector<bool> stays = later_copies(edges);
  const Sets sets = separate_sets(maze_count(maze));
  for (size_t k = 0; k < edges.count; k++)
    if (!stays[k]) stays[k] = unite(sets, edges.all[k]);
  for (size_t k = edges.count; k-- > 0;)
    try_edge(maze, edges.all[k], stays[k]);
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
