#include "world/move.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "maze/edit.h"
#include "maze/lifetime.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/small_world.h"

namespace {

using std::numbers::pi;

constexpr Vec3 centre = {0.5, -3.25, 1.5};

// Node 0 at the centre, joined to a node at each of the given offsets, in that order of slots.
Maze *star(const std::vector<Vec3> &ways) {
  Maze *maze = scenario_grid(1, 1, 0, centre);
  for (const Vec3 way : ways) {
    const Vec3 p = centre + way;
    MazeNode node = {};
    MazeNode_init(&node, p.x, p.y, p.z);
    Maze_join(maze, 0, static_cast<int32_t>(GrowList_append(&maze->nodes, &node)));
  }
  return maze;
}

// The view's right is z and its up is x. The offset starts at 0.5 to the right.
TEST(Move, StepsPastTheEndOfTheBestEdge) {
  const struct {
    double right, up;
    int32_t node;
    Vec3 offset;
  } pushes[] = {
      {1.5, 0.25, 0, {0.25, 0, 2}}, // to the end, but not past it
      {1.501, 0.25, 1, {}},         // the rest of the offset is dropped
      {99, 0, 1, {}},               // at most one step
      {-0.5, 5, 4, {}},             // the last of two equal edges
      {4.5, 5, 4, {}},              // the last of three edges that are as near
      {-0.5, -50, 0, {}},           // no edge there
      {-2, 0, 0, {0, 0, -1.5}},
  };
  for (const auto &push : pushes) {
    SCOPED_TRACE(testing::Message() << "right " << push.right << " up " << push.up);
    SmallWorld world(star({{0, 0, 2}, {2, 0, 0}, {0, 0, 0}, {2, 0, 0}, {0, 0, -2}}));
    world.view = {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}};
    world.offset = {0, 0, 0.5};
    world.time = 7.6;
    World_move(&world, push.right, push.up);
    EXPECT_EQ(world.cur.node, push.node);
    EXPECT_EQ(length(world.offset - push.offset), 0.0);
    EXPECT_EQ(maze_nodes(world.root)[push.node].self.usertime, push.node > 0 ? 7.6 : time_never);
  }
}

TEST(FollowPoint, SlowsTowardsTheBisector) {
  SmallWorld world(star({{2, 0, 0}, {0, 1, 0}}));
  for (double angle = 0.01; angle < pi / 2; angle += 0.01) {
    const double across = pi / 2 - angle;
    const double kept = 1 - std::min(angle, across) / std::max(angle, across);
    world.offset = Vec3{0.5 * std::cos(angle), 0.5 * std::sin(angle), 0};
    const Vec3 along = angle < across ? Vec3{world.offset.x, 0, 0} : Vec3{0, world.offset.y, 0};
    EXPECT_LT(length(World_follow_point(&world) - centre - kept * along), 1e-12) << angle;
  }
  world.offset = {-1, 0, 0};
  EXPECT_EQ(length(World_follow_point(&world) - centre), 0.0);
}

// Rounding can make the cosine of the angle greater than 1.
TEST(FollowPoint, IsFiniteAlongAnEdge) {
  rand_seed(9);
  for (int32_t i = 0; i < 2000; i++) {
    const double x = rand_real(2) - 1, y = rand_real(2) - 1, z = rand_real(2) - 1;
    SmallWorld world(star({{x, y, z}, {y, z, x}})), doubled(star({{x, y, z}, {x, y, z}}));
    world.offset = doubled.offset = 0.5 * Vec3{x, y, z};
    EXPECT_LT(length(World_follow_point(&world) - centre - world.offset), 1e-5);
    EXPECT_EQ(length(World_follow_point(&doubled) - centre), 0.0);
  }
}

} // namespace
