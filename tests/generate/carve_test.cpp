#include "generate/carve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "generate/owned_maze.h"
#include "maze/edit.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

using Row = std::pair<int32_t, uint32_t>; // neighbour and colour
using Table = std::map<int32_t, std::vector<Row>>;

Table table_of(const Maze *maze) {
  Table table;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    std::vector<Row> &list = table[i];
    const MazeNode &node = maze_nodes(maze)[i];
    for (uint32_t r = 0; r < node.degree; ++r)
      list.emplace_back(node.nbr[r], node.edge[r].colour);
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

// Reverse deletion as plainly as it can be told.
Table carved_plainly(Table table) {
  std::vector<std::pair<int32_t, int32_t>> edges;
  for (const auto &[a, list] : table)
    for (size_t r = list.size(); r-- > 0;)
      if (list[r].first > a) edges.emplace_back(a, list[r].first);
  for (size_t k = edges.size(); k >= 1; --k)
    std::swap(edges[k - 1], edges[static_cast<size_t>(rand_int(static_cast<int32_t>(k)))]);
  for (size_t k = edges.size(); k-- > 0;) {
    auto [a, b] = edges[k];
    uint32_t colour = 0;
    for (int32_t half = 0; half < 2; ++half, std::swap(a, b))
      for (size_t i = table[a].size(); i-- > 0;) {
        if (table[a][i].first != b) continue;
        if (colour == 0) colour = table[a][i].second;
        table[a][i] = table[a].back();
        table[a].pop_back();
      }
    const auto label = components(table);
    if (label.at(a) != label.at(b))
      table[a].emplace_back(b, colour), table[b].emplace_back(a, colour);
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

} // namespace
