#include "world/roamer.h"

#include <map>

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "small_world.h"
#include "support/random.h"

namespace {

TEST(Roamer, WalksTheWholeTreeAndTurnsBackAtDeadEndsOnly) {
  rand_seed(3);
  SmallWorld world(scenario_nested(3));
  const Roamer walker = {0.25, 0.25, world.cur, Pos_null};
  GrowList_append(&world.roamers, &walker);
  const Roamer slow = {1e9, 1e9, world.cur, Pos_null};
  GrowList_append(&world.roamers, &slow);
  std::map<std::pair<const Maze *, int32_t>, int> visits;
  for (int step = 0; step < 20000; step++) {
    const Roamer before = rows<Roamer>(world.roamers)[0];
    world.time += 0.25;
    World_step_roamers(&world, 0.25);
    const Roamer after = rows<Roamer>(world.roamers)[0];
    ASSERT_TRUE(Pos_equal(after.prev, before.cur));
    Pos ways[pos_max_edges];
    MazeEdge edges[pos_max_edges];
    const int32_t count = Pos_alledges(before.cur.maze, before.cur.node, ways, edges);
    int32_t e = 0;
    while (e < count && !Pos_equal(ways[e], after.cur))
      e++;
    ASSERT_LT(e, count) << "step " << step;
    ASSERT_TRUE(edges[e].roamertime == world.time && edges[e].usertime < 0) << "step " << step;
    ASSERT_TRUE(!Pos_equal(after.cur, before.prev) || count == 1) << "step " << step;
    visits[{after.cur.maze, after.cur.node}]++;
  }
  size_t plain = 0;
  const auto count_plain = [&plain](auto &&self, const Maze *maze) -> void {
    EXPECT_EQ(maze->visited + static_cast<int32_t>(maze->bordermask), 0);
    for (int32_t i = 0; i < maze_count(maze); i++)
      if (const Maze *below = maze_nodes(maze)[i].submaze)
        self(self, below);
      else
        plain++;
  };
  count_plain(count_plain, world.root);
  EXPECT_NEAR(rows<Roamer>(world.roamers)[1].timer, 1e9 - 5000, 1e-3) << "each has its own time";
  EXPECT_GT(visits.size(), plain * 9 / 10) << "of all levels, since every border is open";
}

TEST(Roamer, StepsWhenItsTimeHasComeAndTriesFiftyTimes) {
  SmallWorld world(scenario_path(2));
  Roamer walker = {1.0, 0.5, {world.root, 1}, {world.root, 0}};
  Roamer_step(&walker, &world, 0.9);
  EXPECT_EQ(walker.cur.node, 1);
  EXPECT_NEAR(walker.timer, 0.1, 1e-12);
  rand_seed(11);
  Roamer_step(&walker, &world, 0.4); // the overshoot is dropped
  EXPECT_EQ(walker.timer, 0.5);
  EXPECT_EQ(walker.cur.node, 0) << "back, when all else failed";
  const int32_t next = rand15();
  rand_seed(11);
  for (int draw = 0; draw < 100; draw++)
    rand15();
  EXPECT_EQ(rand15(), next) << "two draws for each of fifty tries";
  SmallWorld lone(scenario_path(1));
  walker = {0, 2, {lone.root, 0}, Pos_null};
  Roamer_step(&walker, &lone, 0);
  EXPECT_EQ(walker.timer, 2) << "it stands, and tries again later";
  EXPECT_TRUE(Pos_equal(walker.cur, {lone.root, 0}));
}

} // namespace
