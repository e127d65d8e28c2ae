#include "world/roamer.h"

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/small_world.h"

namespace {

TEST(Roamer, GoesOnThroughADoorAndLeavesItsTime) {
  SmallWorld world(scenario_path(3));
  Maze *below = scenario_path(2);
  scenario_hold(world.root, 1, below);
  world.time = 86400.1;
  for (uint32_t seed = 1; seed < 20; seed++) {
    rand_seed(seed);
    Roamer walker = {0, 1, {below, 0}, {world.root, 0}};
    Roamer_step(&walker, &world, 0);
    ASSERT_TRUE(Pos_equal(walker.cur, {below, 1}));
    ASSERT_TRUE(Pos_equal(walker.prev, {below, 0}));
  }
  EXPECT_EQ(maze_nodes(below)[0].edge[0].roamertime, world.time);
  EXPECT_EQ(maze_nodes(below)[0].edge[0].usertime, never);
}

TEST(Roamer, StepsWhenItsTimeHasComeAndTriesFiftyTimes) {
  SmallWorld world(scenario_path(2));
  Roamer walker = {1.0, 0.6, {world.root, 1}, {world.root, 0}};
  Roamer_step(&walker, &world, 0.9);
  EXPECT_EQ(walker.cur.node, 1);
  EXPECT_NEAR(walker.timer, 0.1, 1e-12);
  rand_seed(11);
  Roamer_step(&walker, &world, 0.4); // the overshoot is dropped
  EXPECT_EQ(walker.timer, 0.6);
  EXPECT_EQ(walker.cur.node, 0); // back, when all else failed
  const int32_t next = rand15();
  rand_seed(11);
  for (int draw = 0; draw < 100; draw++) // two for each try
    rand15();
  EXPECT_EQ(rand15(), next);
  SmallWorld lone(scenario_path(1));
  walker = {0, 2, {lone.root, 0}, Pos_null};
  Roamer_step(&walker, &lone, 0);
  EXPECT_EQ(walker.timer, 2); // it stays, and tries again later
  EXPECT_TRUE(Pos_equal(walker.cur, {lone.root, 0}));
}

TEST(Roamer, TheLastOneStepsFirst) {
  SmallWorld world(scenario_nested(1));
  Roamer walkers[] = {{1, 1, {world.root, 5}, Pos_null}, {1, 1, {world.root, 10}, Pos_null}};
  GrowList_append_many(&world.roamers, walkers, 2);
  for (uint32_t seed = 1; seed < 20; seed++) {
    rand_seed(seed);
    World_step_roamers(&world, 1);
    rand_seed(seed);
    Roamer_step(&walkers[1], &world, 1);
    Roamer_step(&walkers[0], &world, 1);
    for (uint32_t i = 0; i < 2; i++)
      ASSERT_TRUE(Pos_equal(rows<Roamer>(world.roamers)[i].cur, walkers[i].cur)) << seed;
  }
}

} // namespace
