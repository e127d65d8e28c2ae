#include "generate/carve.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

#include "maze/edit.h"
#include "maze/pos.h"
#include "support/random.h"

// Trying the edges one by one with a search for a way around each would decide the same, slowly.
// An edge stays exactly if no way around it consists of edges that are tried after it: any cycle
// loses the one of its edges that is tried first. So the edges that stay are known from a
// union-find over the shuffled edges, last to be tried first.

namespace {

struct EdgePair {
  int32_t a, b; // a below b
};

struct Edges {
  std::unique_ptr<EdgePair[]> pairs; // tried from the last to the first
  size_t count;
  bool doubled; // some pair stands more than once
};

Edges collect_edges(const Maze *maze) {
  const size_t room = maze->nodes.count * size_t{MAZE_MAX_DEGREE} / 2;
  Edges edges = {std::make_unique_for_overwrite<EdgePair[]>(room), 0, false};
  for (int32_t a = 0; a < maze_count(maze); ++a) {
    const MazeNode &node = maze_nodes(maze)[a];
    for (uint32_t row = node.degree; row-- > 0;) {
      const int32_t b = node.nbr[row];
      if (b <= a) continue;
      edges.pairs[edges.count++] = {a, b};
      edges.doubled |= std::find(node.nbr, node.nbr + row, b) != node.nbr + row;
    }
  }
  return edges;
}

// Fisher and Yates, from the top; the last draw, which can change nothing, is taken too.
void shuffle(const Edges &edges) {
  for (size_t k = edges.count; k-- > 0;) {
    const int32_t r = rand_int(static_cast<int32_t>(k) + 1);
    std::swap(edges.pairs[k], edges.pairs[r]);
  }
}

// Of pairs that stand more than once, marks all but the first to be tried.
std::vector<bool> later_copies(const Edges &edges) {
  std::vector<size_t> order(edges.count);
  for (size_t k = 0; k < edges.count; ++k)
    order[k] = k;
  const EdgePair *pairs = edges.pairs.get();
  std::sort(order.begin(), order.end(), [pairs](size_t k, size_t l) {
    return std::tie(pairs[k].a, pairs[k].b, k) < std::tie(pairs[l].a, pairs[l].b, l);
  });
  std::vector<bool> copies(edges.count, false);
  for (size_t i = 0; i + 1 < edges.count; ++i) {
    const EdgePair &here = pairs[order[i]];
    const EdgePair &next = pairs[order[i + 1]];
    copies[order[i]] = here.a == next.a && here.b == next.b;
  }
  return copies;
}

// Representative of a node's set; halves the way to it.
int32_t find_set(int32_t *parents, int32_t node) {
  while (parents[node] != node) {
    parents[node] = parents[parents[node]];
    node = parents[node];
  }
  return node;
}

// Joins the sets of both ends; false if they are one already.
bool unite(int32_t *parents, EdgePair pair) {
  const int32_t a = find_set(parents, pair.a);
  const int32_t b = find_set(parents, pair.b);
  parents[b] = a;
  return a != b;
}

std::unique_ptr<int32_t[]> separate_sets(int32_t count) {
  auto parents = std::make_unique_for_overwrite<int32_t[]>(static_cast<size_t>(count));
  for (int32_t i = 0; i < count; ++i)
    parents[i] = i;
  return parents;
}

// The edges of a node in the order in which they are tried: the neighbour, or ~neighbour for an
// edge that goes.
struct Trials {
  int32_t to[MAZE_MAX_DEGREE];
};

// Colour of the edge on the side of its lower end, where the rows of the nodes below `node` are
// final already and the others as they were.
uint32_t lower_colour(const MazeNode *nodes, int32_t node, int32_t neighbour) {
  const MazeNode &lower = nodes[std::min(node, neighbour)];
  return lower.edge[MazeNode_row(lower, std::max(node, neighbour))].colour;
}

// Tries the edges of one node on its neighbours alone: each is taken out, which moves the last one
// into its place, and put back at the end if it stays. Returns how many are left.
uint32_t try_neighbours(int32_t *nbr, uint32_t degree, const Trials &trials) {
  uint32_t left = degree;
  for (uint32_t k = 0; k < degree; ++k) {
    const bool stays = trials.to[k] >= 0;
    const int32_t to = stays ? trials.to[k] : ~trials.to[k];
    *std::find(nbr, nbr + left, to) = nbr[left - 1];
    --left;
    if (stays) nbr[left++] = to;
  }
  return left;
}

void rewrite_rows(MazeNode *nodes, int32_t i, const Trials &trials) {
  MazeNode &node = nodes[i];
  int32_t nbr[MAZE_MAX_DEGREE];
  uint32_t colours[MAZE_MAX_DEGREE];
  std::copy_n(node.nbr, node.degree, nbr);
  const uint32_t degree = try_neighbours(nbr, node.degree, trials);
  for (uint32_t row = 0; row < degree; ++row)
    colours[row] = lower_colour(nodes, i, nbr[row]);
  node.degree = 0;
  for (uint32_t row = 0; row < degree; ++row) {
    MazeNode_append_row(&node, nbr[row]);
    node.edge[row].colour = colours[row];
  }
}

// For a maze in which no pair stands twice: writes each node's rows in one go.
void carve_simple(Maze *maze, const Edges &edges) {
  const auto count = static_cast<size_t>(maze_count(maze));
  const auto parents = separate_sets(maze_count(maze));
  std::vector<bool> stays(edges.count);
  for (size_t k = 0; k < edges.count; ++k)
    stays[k] = unite(parents.get(), edges.pairs[k]);
  const auto trials = std::make_unique_for_overwrite<Trials[]>(count);
  std::vector<uint8_t> tried(count, 0);
  for (size_t k = edges.count; k-- > 0;) {
    const auto [a, b] = edges.pairs[k];
    trials[static_cast<size_t>(a)].to[tried[static_cast<size_t>(a)]++] = stays[k] ? b : ~b;
    trials[static_cast<size_t>(b)].to[tried[static_cast<size_t>(b)]++] = stays[k] ? a : ~a;
  }
  for (int32_t i = 0; i < maze_count(maze); ++i)
    rewrite_rows(maze_nodes(maze), i, trials[static_cast<size_t>(i)]);
}

// Cuts the edge and, if it stays, joins its ends again, which puts it last on both sides.
void try_edge(Maze *maze, EdgePair pair, bool stays) {
  const MazeNode &node = maze_nodes(maze)[pair.a];
  const int32_t row = MazeNode_row(node, pair.b);
  // Of an edge that stood twice, the first trial has removed both.
  if (row < 0) return;
  const uint32_t colour = node.edge[row].colour;
  Maze_cut(maze, pair.a, pair.b);
  if (!stays) return;
  Maze_join(maze, pair.a, pair.b);
  for (const int32_t end : {pair.a, pair.b}) {
    MazeNode &joined = maze_nodes(maze)[end];
    joined.edge[joined.degree - 1].colour = colour;
  }
}

// Where pairs stand twice, the first trial of a pair decides, and later ones find what it left.
void carve_doubled(Maze *maze, const Edges &edges) {
  std::vector<bool> stays = later_copies(edges);
  const auto parents = separate_sets(maze_count(maze));
  for (size_t k = 0; k < edges.count; ++k)
    if (!stays[k]) stays[k] = unite(parents.get(), edges.pairs[k]);
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
