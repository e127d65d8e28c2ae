#include "world/move.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "maze/edit.h"
#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/small_world.h"

namespace {

using std::numbers::pi;

// Node 0 at the origin with one corridor to each of the places, in that order of rows.
Maze *star(const std::vector<Vec3> &places) {
  Maze *maze = scenario_path(1);
  for (const Vec3 p : places) {
    MazeNode node = {};
    MazeNode_init(&node, p.x, p.y, p.z);
    Maze_join(maze, 0, static_cast<int32_t>(GrowList_append(&maze->nodes, &node)));
  }
  return maze;
}

TEST(Move, ArrivesOnlyPastTheEndAndDropsTheRest) {
  SmallWorld world(star({{2, 0, 0}, {-2, 0, 0}}));
  world.time = 7.5;
  World_move(&world, 1.5, 0.25);
  World_move(&world, 0.5, 0);
  EXPECT_EQ(world.cur.node, 0);
  EXPECT_EQ(length(world.offset - Vec3{2, 0.25, 0}), 0.0);
  for (const double push : {1e-9, -100.0}) {
    World_move(&world, push, 0);
    EXPECT_EQ(world.cur.node + length(world.offset), push > 0 ? 1.0 : 0.0);
  }
  EXPECT_EQ(maze_nodes(world.root)[0].edge[0].usertime, 7.5);
}

TEST(Move, LosesAPushThatNoCorridorTakes) {
  SmallWorld world(star({{2, 0, 0}, {0, 0, 0}}));
  for (const double angle : {pi / 2 + 0.01, pi, -pi / 2 - 0.01}) {
    World_move(&world, 50 * std::cos(angle), 50 * std::sin(angle));
    EXPECT_EQ(world.cur.node + length(world.offset), 0.0);
  }
}

TEST(Move, LastOfEqualsWinsAndThePushFollowsTheScreen) {
  SmallWorld world(star({{1, 0, 0}, {0, 1, 0}, {1, 0, 0}, {0, 0, 1}}));
  for (const double my : {0.0, 5.0}) {
    world.cur.node = 0;
    World_move(&world, 5, my);
    EXPECT_EQ(world.cur.node, 3);
  }
  world.cur.node = 0;
  world.view = {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}};
  World_move(&world, 5, 1);
  EXPECT_EQ(world.cur.node, 4);
}

// A straight line of places along x: a plain node, two rooms of two, a plain node.
TEST(Move, WalksThroughTheDoorsOfNeighbouringRooms) {
  Maze *root = scenario_path(4), *left = scenario_path(2), *right = scenario_path(2);
  SmallWorld world(root);
  scenario_hold(root, 1, left);
  scenario_hold(root, 2, right);
  const std::vector<Pos> way = {{root, 0}, {left, 0}, {left, 1}, {right, 0}, {right, 1}, {root, 3}};
  for (size_t i = 0; i < way.size(); ++i)
    maze_nodes(way[i].maze)[way[i].node].x = 2.0 * static_cast<double>(i);
  for (size_t i = 1; i < way.size(); ++i) {
    world.time = static_cast<double>(i);
    World_move(&world, 9, 0);
    EXPECT_TRUE(Pos_equal(world.cur, way[i])) << i;
  }
  EXPECT_EQ(maze_nodes(root)[1].edge[1].usertime, 3.0);
  for (size_t i = way.size() - 1; i-- > 0;) {
    World_move(&world, -0.6, 0); // shows, across a border too
    EXPECT_NEAR(World_follow_point(&world).x, 2.0 * static_cast<double>(i + 1) - 0.6, 1e-12);
    World_move(&world, -9, 0);
    EXPECT_TRUE(Pos_equal(world.cur, way[i])) << i;
  }
}

TEST(FollowPoint, SlowsTowardsTheBisectorWithoutAJump) {
  SmallWorld world(star({{2, 0, 0}, {0, 1, 0}}));
  Vec3 last = {0.5, 0, 0};
  for (double angle = 0; angle < pi / 2; angle += 1e-4) {
    const Vec3 push = {0.5 * std::cos(angle), 0.5 * std::sin(angle), 0};
    const double kept = 1 - std::min(angle, pi / 2 - angle) / std::max(angle, pi / 2 - angle);
    world.offset = push;
    const Vec3 shown = World_follow_point(&world);
    const bool first = angle < pi / 4;
    EXPECT_LT(length(shown - kept * Vec3{first ? push.x : 0, first ? 0 : push.y, 0}), 1e-12);
    EXPECT_LT(length(shown - last), 1e-3);
    last = shown;
  }
  world.offset = {-1, 0, 0};
  EXPECT_EQ(length(World_follow_point(&world)), 0.0);
}

TEST(FollowPoint, IsFiniteExactlyAlongACorridor) {
  rand_seed(9);
  for (int32_t i = 0; i < 10000; ++i) {
    const double x = rand_real(2) - 1, y = rand_real(2) - 1, z = rand_real(2) - 1;
    const Vec3 way = Vec3{x, y, z} * (1 / std::sqrt(x * x + y * y + z * z));
    SmallWorld world(star({way, {way.y, way.z, way.x}})), doubled(star({way, way}));
    world.offset = doubled.offset = 0.5 * way;
    EXPECT_LT(length(World_follow_point(&world) - world.offset), 1e-5);
    EXPECT_EQ(length(World_follow_point(&doubled)), 0.0);
  }
}

} // namespace
