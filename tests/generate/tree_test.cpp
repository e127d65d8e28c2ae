// What holds for whole trees, and what of their making no digest in trees.txt covers.
#include <gtest/gtest.h>

#include "generate/choose.h"
#include "generate/nest.h"
#include "generate/owned_maze.h"
#include "generate/paint.h"
#include "generate/transform.h"
#include "maze/reach.h"
#include "maze/walk.h"
#include "scenarios.h"
#include "support/random.h"
#include "support/strings.h"

namespace {

uint32_t row_count(const Maze *maze) {
  uint32_t rows = 0;
  for (int32_t i = 0; i < maze_count(maze); ++i)
    rows += maze_nodes(maze)[i].degree;
  return rows;
}

TEST(Tree, NoMazeHasALoopOrAnUnreachableNode) {
  for (const int32_t mode : {0, 1, 2})
    for (uint32_t seed = 50; seed < 60; ++seed) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << " seed " << seed);
      rand_seed(seed);
      const OwnedMaze tree(Maze_choose(mode));
      ASSERT_STREQ(scenario_fault(tree.get()), nullptr);
      for (const Maze *maze = tree.get(); maze; maze = Maze_next(tree.get(), maze)) {
        Maze *reachable = Maze_reachable_copy(maze, 0);
        EXPECT_EQ(maze_count(reachable), maze_count(maze));
        EXPECT_EQ(row_count(maze), 2 * (maze->nodes.count - 1));
        Maze_destroy(reachable, 0);
      }
    }
}

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

TEST(Tree, TransformsAndColoursReachTheLevelsAskedFor) {
  for (const int32_t recursive : {0, 1}) {
    const ThreeLevels t = scenario_three_levels();
    const OwnedMaze tree(t.root);
    for (Maze *maze : {t.root, t.n3})
      place({maze, 1}, {0.3, -2.7, 1.1});
    Maze_colour_field(
        t.root, [](Vec3 p) { return static_cast<uint32_t>(100 * p.x); }, recursive);
    EXPECT_EQ(maze_nodes(t.root)[1].self.colour, 30u);
    EXPECT_EQ(maze_nodes(t.n3)[1].self.colour, recursive ? 30 : maze_default_colour);
    Maze_paint(t.root, 9, recursive);
    EXPECT_EQ(maze_nodes(t.n3)[0].edge[0].colour, recursive ? 9 : maze_default_colour);
    Maze_scale(t.root, -1.5, recursive);
    Maze_height_wave(t.root, recursive);
    Maze_rotate(t.root, {0.1, 0.2, -0.3}, recursive);
    Maze_rotate(t.root, {0, 0, 0}, recursive);
    Maze_map_positions(t.root, warp_position, recursive);
    Maze_translate(t.root, {3, -2, 0.25}, recursive);
    const Vec3 moved = node_position(maze_nodes(t.n3)[1]);
    EXPECT_EQ(length(moved - node_position(maze_nodes(t.root)[1])) == 0, recursive == 1);
    EXPECT_EQ(length(moved - Vec3{0.3, -2.7, 1.1}) == 0, recursive == 0);
  }
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
