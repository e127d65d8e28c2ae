#include "generate/carve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "generate/owned_maze.h"
#include "maze/edit.h"
#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

using Row = std::pair<int32_t, uint32_t>; // neighbour and colour
using Table = std::map<int32_t, std::vector<Row>>;

Table table_of(const Maze *maze) {
  Table table;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const MazeNode &node = maze_nodes(maze)[i];
    table[i].clear();
    for (uint32_t r = 0; r < node.degree; ++r)
      table[i].emplace_back(node.nbr[r], node.edge[r].colour);
  }
  return table;
}

// The component of each node, named by its lowest node.
std::map<int32_t, int32_t> components(const Table &table) {
  std::map<int32_t, int32_t> label;
  for (const auto &[node, list] : table)
    label[node] = node;
  for (size_t pass = 0; pass < table.size(); ++pass)
    for (const auto &[node, list] : table)
      for (const Row &row : list)
        label[node] = std::min(label[node], label[row.first]);
  return label;
}

// Takes out the rows towards a node and returns the colour of the last one, or `colour`.
uint32_t cut_rows(std::vector<Row> &list, int32_t target, uint32_t colour) {
  for (const Row &row : list)
    if (row.first == target) colour = row.second;
  for (size_t i = list.size(); i-- > 0;)
    if (list[i].first == target) {
      list[i] = list.back();
      list.pop_back();
    }
  return colour;
}

// Reverse deletion as plainly as it can be told.
Table carved_plainly(Table table) {
  std::vector<std::pair<int32_t, int32_t>> edges;
  for (const auto &[a, list] : table)
    for (size_t r = list.size(); r-- > 0;)
      if (list[r].first > a) edges.emplace_back(a, list[r].first);
  for (size_t k = edges.size(); k >= 1; --k)
    std::swap(edges[k - 1], edges[static_cast<size_t>(rand_int(static_cast<int32_t>(k)))]);
  for (size_t k = edges.size(); k-- > 0;) {
    const auto [a, b] = edges[k];
    const uint32_t colour = cut_rows(table[a], b, 0);
    cut_rows(table[b], a, 0);
    const auto label = components(table);
    if (label.at(a) == label.at(b)) continue;
    table[a].emplace_back(b, colour);
    table[b].emplace_back(a, colour);
  }
  return table;
}

TEST(Carve, RandomGraphsBecomeTheForestOfPlainReverseDeletion) {
  for (uint32_t seed = 1; seed <= 150; ++seed) {
    rand_seed(seed);
    const int32_t n = 2 + rand_int(20);
    const OwnedMaze graph(scenario_random(n, rand_int(4 * n)));
    const MazeNode *nodes = maze_nodes(graph.get());
    if (nodes[0].degree > 0) Maze_join(graph.get(), 0, nodes[0].nbr[0]); // stands twice now
    uint32_t colour = 100;
    scenario_paint(graph.get(), &colour);
    const Table before = table_of(graph.get());
    rand_seed(seed);
    const OwnedMaze carved(Maze_carved(graph.get()));
    const int32_t next_draw = rand15();
    const Table after = table_of(carved.get());
    rand_seed(seed);
    ASSERT_EQ(after, carved_plainly(before)) << "seed " << seed;
    EXPECT_EQ(rand15(), next_draw) << "another number of draws";
    EXPECT_EQ(table_of(graph.get()), before);
    EXPECT_EQ(components(after), components(before));
    size_t rows_and_trees = 0; // a tree of k nodes has 2 (k - 1) rows
    for (const auto &[node, lowest] : components(after)) {
      const MazeNode &kept = maze_nodes(carved.get())[node];
      EXPECT_EQ(length(node_position(kept) - node_position(nodes[node])), 0.0);
      EXPECT_EQ(kept.self.colour, static_cast<uint32_t>(node));
      rows_and_trees += kept.degree + (node == lowest ? 2 : 0);
    }
    EXPECT_EQ(rows_and_trees, 2 * after.size());
  }
}

TEST(Carve, EveryEdgeOfACycleIsAsLikelyToGo) {
  const OwnedMaze cycle(scenario_path(5));
  Maze_join(cycle.get(), 4, 0);
  constexpr int32_t tries = 5000;
  int32_t lost[5] = {};
  rand_seed(77);
  for (int32_t i = 0; i < tries; ++i) {
    const OwnedMaze path(Maze_carved(cycle.get()));
    for (int32_t a = 0; a < 5; ++a)
      if (MazeNode_row(maze_nodes(path.get())[a], (a + 1) % 5) < 0) ++lost[a];
  }
  for (const int32_t count : lost)
    EXPECT_NEAR(count, tries / 5, 150);
  EXPECT_EQ(lost[0] + lost[1] + lost[2] + lost[3] + lost[4], tries);
}

} // namespace
