#include "maze/reach.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"

constexpr int32_t n = 25, nowhere = 1000;
using Distances = std::array<int32_t, n>;

// Distances in edges between all nodes, by Floyd and Warshall.
static std::array<Distances, n> distances(const Maze *maze) {
  std::array<Distances, n> d;
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
static std::pair<int32_t, int32_t> extent(const Distances &distance) {
  int32_t count = 0, far = 0;
  for (const int32_t d : distance)
    if (d < nowhere) count++, far = std::max(far, d);
  return {count, far};
}

// A copy has the nodes with a distance, as self.colour tells, with all their edges.
static void expect_component(const Maze *maze, int32_t start, const Distances &distance) {
  Maze *copy = Maze_reachable_copy(maze, start);
  ASSERT_EQ(maze_count(copy), extent(distance).first);
  for (const MazeNode *node = maze_nodes(copy); node < maze_nodes(copy) + maze_count(copy);
       node++) {
    const MazeNode &source = maze_nodes(maze)[node->self.colour];
    ASSERT_LT(distance[node->self.colour], nowhere);
    ASSERT_EQ(node->submaze, source.submaze) << "is shared";
    ASSERT_EQ(node->degree, source.degree);
    for (uint32_t r = 0; r < node->degree; r++) {
      const uint32_t to = maze_nodes(copy)[node->nbr[r]].self.colour;
      ASSERT_GE(MazeNode_row(source, static_cast<int32_t>(to)), 0);
    }
  }
  Maze_destroy(copy, 0);
}

TEST(Reach, RandomGraphsAreSearchedAsByDistances) {
  for (uint32_t seed = 0; seed < 14; seed++) {
    rand_seed(seed);
    Maze *maze = scenario_random(n, 12 + 5 * static_cast<int32_t>(seed));
    const std::array<Distances, n> table = distances(maze);
    maze_nodes(maze)[3].submaze = Maze_new();
    for (int32_t a = 0; a < n; a++) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << " node " << a);
      uint8_t *set = Maze_reach(maze, a);
      const auto [size_a, far_a] = extent(table[a]);
      for (int32_t b = 0; b < n; b++) {
        const bool way = table[a][b] < nowhere;
        const auto [size_b, far_b] = extent(table[b]);
        ASSERT_EQ(set[b] != 0, way);
        int32_t out = -999;
        ASSERT_EQ(Maze_connected(maze, a, b, &out), way ? std::max(table[a][b], 1) : 0);
        // The side whose farthest node is nearer closes first, and a's side is asked first.
        ASSERT_EQ(out, way ? table[a][b] : far_a <= far_b ? size_a : -size_b);
        ASSERT_EQ(Maze_connected(maze, a, b, nullptr) != 0, way);
      }
      std::free(set);
    }
    expect_component(maze, 0, table[0]);
    expect_component(maze, 3, table[3]);
    Maze_destroy(maze_nodes(maze)[3].submaze, 0);
    Maze_destroy(maze, 0);
  }
}
