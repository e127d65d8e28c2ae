#include "maze/pos.h"

#include <unistd.h>

#include <set>
#include <string>

#include <gtest/gtest.h>

#include "maze/edit.h"
#include "scenarios.h"
#include "support/report.h"

static bool operator<(Pos a, Pos b) {
  return a.maze != b.maze ? a.maze->serial < b.maze->serial : a.node < b.node;
}

TEST(Pos, HandMadeTree) {
  const ThreeLevels t = scenario_three_levels();
  ASSERT_EQ(scenario_fault(t.root), nullptr);
  const auto text = [&](Pos p) {
    const char *name = p.maze == t.root ? " root"
                       : p.maze == t.m1 ? " m1"
                       : p.maze == t.m2 ? " m2"
                       : p.maze == t.n2 ? " n2"
                                        : " n3";
    return name + std::to_string(p.node);
  };
  std::string all;
  for (const Pos from :
       {Pos{t.root, 0}, Pos{t.root, 3}, Pos{t.m1, 0}, Pos{t.m1, 1}, Pos{t.m2, 0}, Pos{t.m2, 1},
        Pos{t.n2, 0}, Pos{t.n2, 1}, Pos{t.n2, 2}, Pos{t.n3, 0}, Pos{t.n3, 1}}) {
    Pos out[pos_max_edges];
    const int32_t count = Pos_alledges(from.maze, from.node, out, nullptr);
    for (int32_t i = 0; i < count; i++)
      all += text(out[i]);
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

static int32_t count_places(const Maze *maze) {
  int32_t count = 0;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const Maze *below = maze_nodes(maze)[i].submaze;
    count += below ? count_places(below) : 1;
  }
  return count;
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

TEST(Pos, EveryWayBackLeadsHomeInANestedTree) {
  Maze *root = scenario_nested(3);
  uint32_t colour = 1;
  scenario_paint(root, &colour);
  ASSERT_EQ(scenario_fault(root), nullptr);
  std::set<Pos> reached = {{root, 0}};
  std::set<uint32_t> crossed;
  for (std::set<Pos> waiting = reached; !waiting.empty();) {
    const Pos here = waiting.extract(waiting.begin()).value();
    Pos out[pos_max_edges];
    MazeEdge edges[pos_max_edges];
    for (int32_t i = Pos_alledges(here.maze, here.node, out, edges); i-- > 0;) {
      ASSERT_EQ(maze_nodes(out[i].maze)[out[i].node].submaze, nullptr);
      ASSERT_TRUE(leads_home(out[i], here, edges[i].colour));
      crossed.insert(edges[i].colour);
      if (reached.insert(out[i]).second) waiting.insert(out[i]);
    }
  }
  EXPECT_EQ(static_cast<int32_t>(reached.size()), count_places(root));
  EXPECT_EQ(count_places(root), 13 + 3 * 13 + 9 * 16);
  EXPECT_EQ(crossed.size(), colour - 1); // every edge of every level is one that can be walked
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
