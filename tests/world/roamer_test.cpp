#include "world/roamer.h"

#include <map>
#include <set>

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/small_world.h"

namespace {

TEST(Roamer, StepsThroughADoorWhenItsTimerRunsOut) {
  SmallWorld world(scenario_path(3));
  Maze *below = scenario_path(2);
  scenario_hold(world.root, 1, below);
  world.time = 86400.1;
  for (uint32_t seed = 1; seed < 20; seed++) {
    rand_seed(seed);
    Roamer walker = {1.0, 0.6, {below, 0}, {world.root, 0}};
    Roamer_step(&walker, &world, 0.9);
    EXPECT_EQ(walker.cur.node, 0);
    Roamer_step(&walker, &world, 0.4); // the overshoot is dropped
    EXPECT_TRUE(Pos_equal(walker.cur, {below, 1}) && Pos_equal(walker.prev, {below, 0}));
    EXPECT_EQ(walker.timer, 0.6);
  }
  EXPECT_EQ(maze_nodes(below)[0].edge[0].roamertime, world.time);
}

TEST(Roamer, LastStepsFirstAfterFiftyDraws) {
  SmallWorld world(scenario_path(3));
  for (uint32_t seed = 1; seed < 20; seed++) {
    const Roamer walkers[] = {{1, 1, {world.root, 1}, Pos_null},
                              {1, 1, {world.root, 0}, {world.root, 1}}};
    GrowList_clear(&world.roamers);
    GrowList_append_many(&world.roamers, walkers, 2);
    rand_seed(seed);
    World_step_roamers(&world, 1);
    rand_seed(seed);
    for (int draw = 0; draw < 100; draw++) // two per try
      rand15();
    EXPECT_EQ(rows<Roamer>(world.roamers)[0].cur.node, 2 * rand_int(2));
    EXPECT_EQ(rows<Roamer>(world.roamers)[1].cur.node, 1); // straight back
  }
}

TEST(Roamer, NewOnesStartAtAnyPlaceWithTheirOwnPeriod) {
  SmallWorld world(scenario_three_levels().root);
  std::map<std::pair<Maze *, int32_t>, int> places;
  std::set<double> periods;
  World_set_roamers(&world, 4400);
  for (uint32_t i = 0; i < 4400; i++) {
    const Roamer &r = rows<Roamer>(world.roamers)[i];
    places[{r.cur.maze, r.cur.node}] += Pos_is_place(r.cur) && r.timer < r.period;
    periods.insert(r.period);
  }
  EXPECT_EQ(places.size(), 11U);
  for (const auto &[place, count] : places)
    EXPECT_NEAR(count, 400, 80);
  EXPECT_NEAR(*periods.begin() + *periods.rbegin(), 0.75, 0.01);
}

} // namespace
