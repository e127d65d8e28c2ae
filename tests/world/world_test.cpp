#include "world/world.h"

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "world/small_world.h"

namespace {

TEST(World, ANewMazeLeavesClockAndCameraAlone) {
  World world;
  World_new(&world, 0);
  EXPECT_LT(length(world.camera - Pos_position(world.cur) - Vec3{0, 0, 20}), 1e-9);
  EXPECT_EQ(length(world.offset) + world.time, 0.0);
  Maze_destroy(world.root, 1);
  world.offset = world.camera = {5, 6, 7};
  world.zoom = world.time = 3;
  World_new_maze(&world, 2);
  EXPECT_TRUE(Pos_equal(world.cur, {world.root, 0}));
  EXPECT_EQ(length(world.offset) + length(world.camera - Vec3{5, 6, 7}), 0.0);
  EXPECT_EQ(world.zoom + world.time, 6.0);
  World_free(&world);
}

TEST(World, TheFirstPlaceIsThePlainNodeBelowAllFirstNodes) {
  const SmallWorld world(scenario_path(2));
  Maze *one = scenario_path(2), *two = scenario_path(2);
  scenario_hold(world.root, 0, one);
  scenario_hold(one, 0, two);
  EXPECT_TRUE(Pos_equal(World_first_place(world.root), {two, 0}));
  scenario_hold(two, 0, Maze_new());
  EXPECT_TRUE(Pos_equal(World_first_place(world.root), {two, 1}));
}

} // namespace
