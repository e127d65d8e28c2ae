#include "maze/reach.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"

constexpr int32_t n = 25, nowhere = 1000;
using Table = std::array<std::array<int32_t, n>, n>;

// Distance in edges between all nodes, over every node in between.
static Table distances(const Maze *maze) {
  Table d;
  for (int32_t a = 0; a < n; a++)
    for (int32_t b = 0; b < n; b++)
      d[a][b] = a == b ? 0 : MazeNode_row(maze_nodes(maze)[a], b) >= 0 ? 1 : nowhere;
  for (int32_t k = 0; k < n; k++)
    for (int32_t a = 0; a < n; a++)
      for (int32_t b = 0; b < n; b++)
        d[a][b] = std::min(d[a][b], d[a][k] + d[k][b]);
  return d;
}

// How many nodes there is a way to, and how far the farthest of them is.
static std::pair<int32_t, int32_t> extent(const std::array<int32_t, n> &distance) {
  int32_t count = 0, far = 0;
  for (const int32_t d : distance)
    if (d < nowhere) count++, far = std::max(far, d);
  return {count, far};
}

static void expect_component(const Maze *maze, int32_t start, const Table &table) {
  Maze *copy = Maze_reachable_copy(maze, start);
  ASSERT_EQ(scenario_fault(copy), nullptr);
  ASSERT_EQ(maze_count(copy), extent(table[start]).first);
  const MazeNode *now = maze_nodes(copy);
  for (int32_t i = 0; i < maze_count(copy); i++) {
    const auto origin = static_cast<int32_t>(now[i].self.colour);
    const MazeNode &source = maze_nodes(maze)[origin];
    ASSERT_LT(table[start][origin], nowhere);
    ASSERT_TRUE(maze_count(copy) < n || origin == i); // a whole graph keeps its order
    ASSERT_EQ(now[i].degree, source.degree);
    for (uint32_t r = 0; r < now[i].degree; r++)
      ASSERT_GE(MazeNode_row(source, static_cast<int32_t>(now[now[i].nbr[r]].self.colour)), 0);
  }
  Maze_destroy(copy, 0);
}

TEST(Reach, RandomGraphsAgainstAPlainSearch) {
  int closed_a = 0, closed_b = 0, joined = 0, whole = 0;
  for (uint32_t seed = 0; seed < 14; seed++) {
    rand_seed(seed);
    Maze *maze = scenario_random(n, 12 + 5 * static_cast<int32_t>(seed));
    const Table table = distances(maze);
    for (int32_t a = 0; a < n; a++) {
      uint8_t *set = Maze_reach(maze, a);
      const auto [size_a, far_a] = extent(table[a]);
      whole += size_a == n;
      expect_component(maze, a, table);
      for (int32_t b = 0; b < n; b++) {
        const bool way = table[a][b] < nowhere;
        const auto [size_b, far_b] = extent(table[b]);
        ASSERT_EQ(set[b] != 0, way);
        int32_t out = -999;
        ASSERT_EQ(Maze_connected(maze, a, b, &out), way ? std::max(table[a][b], 1) : 0);
        // The side whose farthest node is nearer closes first, and a's side is asked first.
        ASSERT_EQ(out, way ? table[a][b] : far_a <= far_b ? size_a : -size_b);
        ASSERT_EQ(Maze_connected(maze, a, b, nullptr) != 0, way);
        (way ? joined : out > 0 ? closed_a : closed_b)++;
      }
      std::free(set);
    }
    Maze_destroy(maze, 1);
  }
  EXPECT_GT(std::min({closed_a, closed_b, joined}), 500);
  EXPECT_GT(whole, 20);
}
