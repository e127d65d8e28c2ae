// What no digest in trees.txt covers.
#include <gtest/gtest.h>

#include "generate/nest.h"
#include "generate/owned_maze.h"
#include "generate/transform.h"
#include "scenarios.h"
#include "support/strings.h"

namespace {

TEST(Tree, LabelsCountTheHoldersOfEachMaze) {
  const ThreeLevels t = scenario_three_levels();
  const OwnedMaze tree(t.root);
  Maze_label_tree(t.root);
  EXPECT_STREQ(t.m1->name, "1");
  EXPECT_STREQ(t.m2->name, "2");
  EXPECT_STREQ(t.n3->name, "1.02");
  string_assign(&t.root->name, "A");
  Maze_label_tree(t.root);
  EXPECT_STREQ(t.m2->name, "A.02");
  EXPECT_STREQ(t.n2->name, "A.01.01");
}

void place(Pos pos, Vec3 p) {
  MazeNode &node = maze_nodes(pos.maze)[pos.node];
  node.x = p.x;
  node.y = p.y;
  node.z = p.z;
}

TEST(Tree, BoundsCoverPlainNodesAndTheFirstOfEachMaze) {
  const ThreeLevels t = scenario_three_levels();
  const OwnedMaze tree(t.root);
  place({t.root, 1}, {-100, 0, 0}); // a container, and not the first node
  place({t.n2, 2}, {2, -4, 7});
  place({t.root, 0}, {0, 0, 0.5});
  scenario_hold(t.n3, 0, scenario_path(6));
  scenario_hold(t.m2, 1, Maze_new()); // adds nothing
  place({t.n3, 0}, {-9, 0, 0});       // a container, but the first node
  Vec3 low, high;
  Maze_bounds(t.root, &low, &high);
  EXPECT_EQ(length(low - Vec3{-9, -4, 0}), 0.0);
  EXPECT_EQ(length(high - Vec3{5, 0, 7}), 0.0);
  Maze_bounds(t.m2, &low, &high); // away from the origin
  EXPECT_EQ(length(low - high), 0.0);
}

} // namespace
