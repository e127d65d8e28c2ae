#include "maze/reach.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <vector>

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"

// Distance in edges of every node from `start`, -1 where there is no way: relaxed until it rests.
static std::vector<int32_t> distances(const Maze *maze, int32_t start) {
  std::vector<int32_t> distance(static_cast<size_t>(maze_count(maze)), -1);
  distance[start] = 0;
  for (bool changed = true; changed;) {
    changed = false;
    for (int32_t i = 0; i < maze_count(maze); i++) {
      const MazeNode &node = maze_nodes(maze)[i];
      for (uint32_t r = 0; r < node.degree && distance[i] >= 0; r++) {
        int32_t &other = distance[node.nbr[r]];
        if (other >= 0 && other <= distance[i] + 1) continue;
        other = distance[i] + 1;
        changed = true;
      }
    }
  }
  return distance;
}

static int32_t size_of(const std::vector<int32_t> &distance) {
  return static_cast<int32_t>(
      std::count_if(distance.begin(), distance.end(), [](int32_t d) { return d >= 0; }));
}

// The side whose farthest node is nearer closes first, and a's side is asked first.
static int32_t closed_side(const std::vector<int32_t> &a, const std::vector<int32_t> &b) {
  const int32_t far_a = *std::max_element(a.begin(), a.end());
  const int32_t far_b = *std::max_element(b.begin(), b.end());
  return far_a <= far_b ? size_of(a) : -size_of(b);
}

TEST(Reach, RandomGraphsAgainstAPlainSearch) {
  int closed_a = 0, closed_b = 0, joined = 0;
  for (uint32_t seed = 0; seed < 12; seed++) {
    rand_seed(seed);
    const int32_t n = 25;
    Maze *maze = scenario_random(n, 12 + 2 * static_cast<int32_t>(seed));
    std::vector<std::vector<int32_t>> table;
    for (int32_t i = 0; i < n; i++)
      table.push_back(distances(maze, i));
    for (int32_t a = 0; a < n; a++) {
      uint8_t *set = Maze_reach(maze, a);
      for (int32_t b = 0; b < n; b++) {
        const int32_t distance = table[a][b];
        ASSERT_EQ(set[b] != 0, distance >= 0);
        int32_t out = -999;
        ASSERT_EQ(Maze_connected(maze, a, b, &out), distance < 0 ? 0 : std::max(distance, 1));
        ASSERT_EQ(out, distance < 0 ? closed_side(table[a], table[b]) : distance);
        ASSERT_EQ(Maze_connected(maze, a, b, nullptr) != 0, distance >= 0);
        (distance >= 0 ? joined : out > 0 ? closed_a : closed_b)++;
      }
      std::free(set);
    }
    Maze_destroy(maze, 1);
  }
  EXPECT_GT(std::min({closed_a, closed_b, joined}), 500);
}

TEST(Reach, ReachableCopyIsTheComponent) {
  int whole = 0;
  for (uint32_t seed = 0; seed < 20; seed++) {
    rand_seed(seed);
    Maze *maze = scenario_random(30, 16 + 6 * static_cast<int32_t>(seed));
    const int32_t start = rand_int(30);
    const std::vector<int32_t> distance = distances(maze, start);
    Maze *copy = Maze_reachable_copy(maze, start);
    ASSERT_EQ(scenario_fault(copy), nullptr);
    ASSERT_EQ(maze_count(copy), size_of(distance));
    const MazeNode *now = maze_nodes(copy), *before = maze_nodes(maze);
    whole += maze_count(copy) == 30;
    for (int32_t i = 0; i < maze_count(copy); i++) {
      if (maze_count(copy) == 30) {
        ASSERT_EQ(now[i].self.colour, before[i].self.colour);
      }
      const MazeNode &source = before[now[i].self.colour];
      ASSERT_GE(distance[now[i].self.colour], 0);
      ASSERT_EQ(now[i].degree, source.degree);
      for (uint32_t r = 0; r < now[i].degree; r++)
        ASSERT_GE(MazeNode_row(source, static_cast<int32_t>(now[now[i].nbr[r]].self.colour)), 0);
    }
    Maze_destroy(copy, 0);
    Maze_destroy(maze, 1);
  }
  EXPECT_GT(whole, 2);
}
