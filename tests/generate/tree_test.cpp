// What holds for whole trees, and what of their making no digest in trees.txt covers.
#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "generate/choose.h"
#include "generate/nest.h"
#include "generate/owned_maze.h"
#include "generate/transform.h"
#include "maze/pos.h"
#include "maze/walk.h"
#include "scenarios.h"
#include "support/random.h"
#include "support/strings.h"

namespace {

// A walk from a place through all doors comes to every plain node, by as few ways as there are in a
// tree, which has one edge less than nodes.
void expect_one_tree(Maze *root) {
  std::vector<Pos> todo;
  size_t plain = 0;
  for (Maze *maze = root; maze; maze = Maze_next(root, maze))
    for (int32_t i = 0; i < maze_count(maze); ++i) {
      if (maze_nodes(maze)[i].submaze) continue;
      todo = {{maze, i}};
      ++plain;
    }
  std::set<std::pair<Maze *, int32_t>> reached = {{todo[0].maze, todo[0].node}};
  size_t ways = 0;
  while (!todo.empty()) {
    Pos to[pos_max_edges];
    const Pos here = todo.back();
    todo.pop_back();
    for (int32_t k = Pos_alledges(here.maze, here.node, to, nullptr); k-- > 0; ++ways)
      if (reached.emplace(to[k].maze, to[k].node).second) todo.push_back(to[k]);
  }
  EXPECT_EQ(reached.size(), plain);
  EXPECT_EQ(ways, 2 * (plain - 1));
}

TEST(Tree, NoLoopAndNoPlaceOutOfReach) {
  for (const int32_t mode : {0, 1, 2})
    for (uint32_t seed = 50; seed < 60; ++seed) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << " seed " << seed);
      rand_seed(seed);
      const OwnedMaze tree(Maze_choose(mode));
      expect_one_tree(tree.get());
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
