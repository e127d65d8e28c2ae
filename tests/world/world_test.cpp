#include "world/world.h"

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/small_world.h"

namespace {

TEST(World, ANewOneLooksDownFromTheZoom) {
  rand_seed(596); // nested
  World world = {};
  world.offset = {1, 2, 3};
  world.time = 4;
  world.view.m[0][1] = 5;
  World_new(&world, 0);
  EXPECT_TRUE(Pos_equal(world.cur, World_first_place(world.root)));
  EXPECT_EQ(length(world.camera - Pos_position(world.cur) - Vec3{0, 0, 20}), 0.0);
  EXPECT_EQ(length(Mat3_row(world.view, 0) - Vec3{1, 0, 0}), 0.0);
  EXPECT_EQ(length(world.offset), 0.0);
  EXPECT_EQ(world.time, 0.0);
  EXPECT_EQ(world.zoom, 20.0);
  EXPECT_EQ(world.showtrail, 1);
  EXPECT_EQ(world.roamers.count, 0U);
  World_free(&world);
}

TEST(World, ANewMazeLeavesClockAndCameraAlone) {
  SmallWorld world(scenario_path(2));
  Maze_destroy(world.root, 1);
  world.offset = world.camera = {5, 6, 7};
  world.time = 3;
  World_new_maze(&world, 2);
  EXPECT_TRUE(Pos_equal(world.cur, {world.root, 0}));
  EXPECT_EQ(maze_count(world.root), 12); // the ladder of mode 2
  EXPECT_EQ(length(world.offset), 0.0);
  EXPECT_EQ(length(world.camera - Vec3{5, 6, 7}), 0.0);
  EXPECT_EQ(world.zoom, 13.7);
  EXPECT_EQ(world.time, 3);
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
