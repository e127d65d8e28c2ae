#include "maze/pos.h"

#include <string>

#include <unistd.h>
#include <gtest/gtest.h>

#include "maze/edit.h"
#include "scenarios.h"
#include "support/report.h"

// All that one can walk to from each place, with the colours of the edges: 1, 2 and 9 in the root,
// from left to right, and 3, 5 and 4 in m1.
TEST(Pos, EdgesLeadThroughAllLevels) {
  const ThreeLevels t = scenario_three_levels();
  uint32_t colour = 1;
  scenario_paint(t.root, &colour);
  const std::pair<Maze *, const char *> names[] = {
      {t.root, "root"}, {t.m1, "m1"}, {t.m2, "m2"}, {t.n2, "n2"}, {t.n3, "n3"}};
  std::string all;
  for (const auto &[maze, name] : names)
    for (int32_t node = 0; node < maze_count(maze); node++) {
      Pos out[pos_max_edges];
      MazeEdge edges[pos_max_edges];
      if (maze_nodes(maze)[node].submaze) continue;
      all += name + std::to_string(node) + ":";
      const int32_t count = Pos_alledges(maze, node, out, edges);
      for (int32_t i = 0; i < count; i++)
        for (const auto &[at, called] : names)
          if (out[i].maze == at)
            all += std::string(" ") + called + std::to_string(out[i].node) + " by " +
                   std::to_string(edges[i].colour);
      all += "\n";
    }
  EXPECT_EQ(all, "root0: m10 by 1\n"
                 "root3: m21 by 9\n"
                 "m10: n20 by 3 root0 by 1\n"
                 "m11: n31 by 4 m20 by 2\n"
                 "m20: m21 by 10 m11 by 2\n"
                 "m21: m20 by 10 root3 by 9\n"
                 "n20: n21 by 6 m10 by 3\n"
                 "n21: n20 by 6 n22 by 7 n30 by 5\n"
                 "n22: n21 by 7\n"
                 "n30: n31 by 8 n21 by 5\n"
                 "n31: n30 by 8 m11 by 4\n");
  EXPECT_TRUE(Pos_equal(Pos_submaze_exit(t.n2, 2), Pos_null)); // no door
  EXPECT_TRUE(Pos_equal(Pos_submaze_exit(t.root, 0), Pos_null));
  EXPECT_TRUE(Pos_equal(Pos_submaze_enter(t.root, 3, 1), Pos_null)); // no neighbour
  Maze *stranger = Maze_copy(t.root, 0);
  EXPECT_TRUE(Pos_equal(Pos_submaze_enter(stranger, 0, 1), Pos_null));
  Maze_destroy(stranger, 0);
  Maze_destroy(t.root, 1);
}

TEST(Pos, FullDoorHasNineEntries) {
  Maze *root = scenario_path(2), *below = scenario_graph("ab ac ad ae af ag ah ai");
  scenario_hold(root, 1, below);
  Pos out[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  EXPECT_EQ(Pos_alledges(below, 0, out, edges), 9);
  EXPECT_EQ(Pos_edges(below, 0, 0, out, edges), 8);
  EXPECT_TRUE(Pos_equal(out[7], {below, 8}));
  EXPECT_TRUE(Pos_equal(out[8], {root, 0})); // of the first call
  Maze_destroy(root, 1);
}

TEST(PosDeathTest, ABorderWithoutADoorIsFatal) {
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
