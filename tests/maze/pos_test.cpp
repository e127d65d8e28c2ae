#include "maze/pos.h"

#include <set>
#include <string>

#include <unistd.h>
#include <gtest/gtest.h>

#include "maze/edit.h"
#include "scenarios.h"
#include "support/report.h"

TEST(Pos, HandMadeTree) {
  const ThreeLevels t = scenario_three_levels();
  ASSERT_EQ(scenario_fault(t.root), nullptr);
  const std::pair<Maze *, const char *> names[] = {
      {t.root, " root"}, {t.m1, " m1"}, {t.m2, " m2"}, {t.n2, " n2"}, {t.n3, " n3"}};
  std::string all;
  for (const auto &[maze, name] : names)
    for (int32_t node = 0; node < maze_count(maze); node++) {
      Pos out[pos_max_edges];
      if (maze_nodes(maze)[node].submaze) continue;
      const int32_t count = Pos_alledges(maze, node, out, nullptr);
      for (int32_t i = 0; i < count; i++)
        for (const auto &[at, called] : names)
          if (out[i].maze == at) all += called + std::to_string(out[i].node);
      all += ";";
    }
  EXPECT_EQ(all, " m10; m21; n20 root0; n31 m20; m21 m11; m20 root3; n21 m10; n20 n22 n30; n21;"
                 " n31 n21; n30 m11;");
  EXPECT_TRUE(Pos_equal(Pos_submaze_exit(t.n2, 2), Pos_null));
  EXPECT_TRUE(Pos_equal(Pos_submaze_exit(t.root, 0), Pos_null));
  EXPECT_TRUE(Pos_equal(Pos_submaze_enter(t.root, 3, 1), Pos_null));
  Maze *stranger = Maze_copy(t.root, 0);
  EXPECT_TRUE(Pos_equal(Pos_submaze_enter(stranger, 0, 1), Pos_null));
  Maze_destroy(stranger, 0);
  Maze_destroy(t.root, 1);
}

// Whether `home` is listed at `from` once, along an edge of that colour.
static bool leads_home(Pos from, Pos home, uint32_t colour) {
  Pos out[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  int32_t found = 0;
  for (int32_t i = Pos_alledges(from.maze, from.node, out, edges); i-- > 0;)
    found += Pos_equal(out[i], home) && edges[i].colour == colour;
  return found == 1;
}

// Adds the colours of all edges listed at any place of the tree.
static void walk_tree(Maze *maze, std::multiset<uint32_t> *crossed) {
  for (int32_t node = 0; node < maze_count(maze); node++) {
    Pos out[pos_max_edges];
    MazeEdge edges[pos_max_edges];
    if (Maze *below = maze_nodes(maze)[node].submaze) {
      walk_tree(below, crossed);
      continue;
    }
    for (int32_t i = Pos_alledges(maze, node, out, edges); i-- > 0;) {
      ASSERT_EQ(maze_nodes(out[i].maze)[out[i].node].submaze, nullptr);
      ASSERT_TRUE(leads_home(out[i], {maze, node}, edges[i].colour));
      crossed->insert(edges[i].colour);
    }
  }
}

TEST(Pos, EveryWayBackLeadsHomeInANestedTree) {
  Maze *root = scenario_nested(3);
  uint32_t colour = 1;
  scenario_paint(root, &colour);
  ASSERT_EQ(scenario_fault(root), nullptr);
  std::multiset<uint32_t> crossed;
  walk_tree(root, &crossed);
  EXPECT_EQ(colour, 1 + 24 * 13U);
  EXPECT_EQ(crossed.size(), 2 * 24 * 13U);
  for (const uint32_t c : crossed) // every edge of every level can be walked from both ends
    EXPECT_EQ(crossed.count(c), 2U);
  Maze_destroy(root, 1);
}

TEST(Pos, FullDoorHasNineEntries) {
  Maze *root = scenario_path(2), *below = scenario_path(9);
  for (int32_t i = 2; i < 9; i++)
    Maze_join(below, 0, i);
  scenario_hold(root, 1, below);
  maze_nodes(root)[1].edge[0].colour = 0x123456;
  Pos out[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  ASSERT_EQ(Pos_alledges(below, 0, out, edges), 9);
  EXPECT_TRUE(Pos_equal(out[7], {below, 8}));
  EXPECT_TRUE(Pos_equal(out[8], {root, 0}));
  EXPECT_EQ(edges[8].colour, 0x123456U);
  Maze_destroy(root, 1);
}
TEST(PosDeathTest, BrokenBorderIsFatal) {
  Maze *root = scenario_path(2);
  scenario_hold(root, 1, scenario_path(2));
  MazeNode_remove_row(&maze_nodes(root)[1], 0);
  Pos out[pos_max_edges];
  const auto walk = [&] {
    report_sleep = [](int32_t) {};
    dup2(STDERR_FILENO, STDOUT_FILENO); // where a death test looks
    Pos_alledges(root, 0, out, nullptr);
  };
  EXPECT_EXIT(walk(), testing::ExitedWithCode(1),
              "FATAL ERROR. Pos_alledges: Pos_submaze_enter returned Pos_null");
  Maze_destroy(root, 1);
}
