#include "generate/carve.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "maze/edit.h"
#include "maze/pos.h"
#include "maze/reach.h"
#include "support/random.h"

namespace {

struct EdgePair {
  int32_t a, b; // a below b
};

std::vector<EdgePair> collect_edges(const Maze *maze) {
  std::vector<EdgePair> pairs;
  for (int32_t a = 0; a < maze_count(maze); ++a) {
    const MazeNode &node = maze_nodes(maze)[a];
    for (uint32_t row = node.degree; row-- > 0;)
      if (a < node.nbr[row]) pairs.push_back({a, node.nbr[row]});
  }
  return pairs;
}

// Fisher and Yates, from the top; the last draw, which can change nothing, is taken too.
void shuffle(std::vector<EdgePair> &pairs) {
  for (size_t k = pairs.size(); k-- > 0;) {
    const int32_t r = rand_int(static_cast<int32_t>(k) + 1);
    std::swap(pairs[k], pairs[static_cast<size_t>(r)]);
  }
}

// Joins two nodes again that the cut of their edge has just separated.
void join_back(Maze *maze, int32_t a, int32_t b, uint32_t colour) {
  Maze_join(maze, a, b);
  for (const int32_t end : {a, b}) {
    MazeNode &node = maze_nodes(maze)[end];
    node.edge[node.degree - 1].colour = colour;
  }
}

void try_edge(Maze *maze, EdgePair pair) {
  const MazeNode &node = maze_nodes(maze)[pair.a];
  const int32_t row = MazeNode_row(node, pair.b);
  // Of an edge that stood twice, the first trial has removed both.
  if (row < 0) return;
  const uint32_t colour = node.edge[row].colour;
  Maze_cut(maze, pair.a, pair.b);
  if (Maze_connected(maze, pair.a, pair.b, nullptr) == 0) join_back(maze, pair.a, pair.b, colour);
}

} // namespace

Maze *Maze_carved(const Maze *maze) {
  Maze *carved = Maze_copy(maze, 1);
  std::vector<EdgePair> pairs = collect_edges(maze);
  shuffle(pairs);
  for (size_t k = pairs.size(); k-- > 0;)
    try_edge(carved, pairs[k]);
  return carved;
}
