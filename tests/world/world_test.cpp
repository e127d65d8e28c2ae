#include "world/world.h"

#include <cmath>
#include <numbers>
#include <tuple>

#include <gtest/gtest.h>

#include "maze/lifetime.h"
#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/camera.h"
#include "world/small_world.h"

namespace {

using std::numbers::pi;

TEST(World, NewMazeKeepsClockAndCamera) {
  rand_seed(596); // nested
  World world = {};
  world.offset = {1, 2, 3};
  world.time = world.view.m[0][1] = 4;
  World_new(&world, 0);
  EXPECT_TRUE(Pos_equal(world.cur, World_first_place(world.root)));
  EXPECT_EQ(length(world.camera - Pos_position(world.cur) - Vec3{0, 0, 20}), 0.0);
  EXPECT_EQ(std::tuple(length(Mat3_row(world.view, 0) - Vec3{1, 0, 0}), length(world.offset),
                       world.time, world.zoom, world.showtrail, world.roamers.count),
            std::tuple(0, 0, 0, 20, 1, 0U));
  Maze_destroy(world.root, 1);
  world.offset = world.camera = {5, 6, 7};
  world.time = 3;
  World_new_maze(&world, 2); // a ladder of 12 nodes
  EXPECT_TRUE(Pos_equal(world.cur, {world.root, 0}));
  EXPECT_EQ(std::tuple(maze_count(world.root), length(world.offset), world.camera.z, world.time),
            std::tuple(12, 0, 7, 3));
  World_free(&world);
}

TEST(World, FirstPlaceIsBelowAllFirstNodes) {
  const SmallWorld world(scenario_path(2));
  Maze *one = scenario_path(2), *two = scenario_path(2);
  scenario_hold(world.root, 0, one);
  scenario_hold(one, 0, two);
  EXPECT_TRUE(Pos_equal(World_first_place(world.root), {two, 0}));
  scenario_hold(two, 0, Maze_new());
  EXPECT_TRUE(Pos_equal(World_first_place(world.root), {two, 1}));
}

TEST(Camera, TurningKeepsTheTargetAndClampsThePitch) {
  SmallWorld world(scenario_path(2));
  world.camera = {1, 2, 3};
  const Vec3 target = world.camera - Vec3{0, 0, world.zoom};
  double yaw = 0, pitch = 0;
  rand_seed(3);
  for (int32_t i = 0; i < 100; i++) {
    yaw += rand_real(4) - 2;
    pitch += rand_real(4) - 2;
    const double expected = pitch;
    World_turn_view(&world, yaw, &pitch);
    EXPECT_EQ(pitch, expected > 0 ? 0 : expected < -pi ? -pi : expected);
    const Vec3 to_eye = {std::sin(pitch) * std::sin(yaw), std::sin(pitch) * std::cos(yaw),
                         std::cos(pitch)};
    EXPECT_LT(length(Mat3_row(world.view, 2) - to_eye), 1e-12);
    EXPECT_LT(length(world.camera - world.zoom * to_eye - target), 1e-10);
    // The view's right stays horizontal.
    EXPECT_LT(length(Mat3_row(world.view, 0) - Vec3{std::cos(yaw), -std::sin(yaw), 0}), 1e-12);
    EXPECT_NEAR(Mat3_determinant(world.view), 1.0, 1e-12);
  }
}

TEST(Camera, ChaseArrivesWithinATenthOfASecond) {
  SmallWorld world(scenario_path(2));
  world.view = {{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}}};
  const Vec3 ideal = {0.3, -world.zoom, 0}, start = {1e6 / 3, -7.1, 33.3};
  const double bad = std::nan("");
  for (const double dt : {0.0, 1.0 / 240, 1.0 / 60, 0.05, 0.2, 3.0})
    for (const Vec3 from : {start, {0, bad, 0}, {HUGE_VAL, 0, 0}}) {
      world.camera = from;
      World_chase(&world, {0.3, 0, 0}, dt);
      const bool moves = dt < 0.1 && is_finite(from);
      const Vec3 expected = moves ? start + 10 * dt * (ideal - start) : ideal;
      EXPECT_LE(length(world.camera - expected), moves ? 1e-9 : 0.0) << dt;
    }
}

} // namespace
