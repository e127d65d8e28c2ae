#include "generate/transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "generate/flat.h"
#include "generate/owned_maze.h"
#include "maze/pos.h"
#include "scenarios.h"
#include "support/mat3.h"

namespace {

using std::numbers::pi;

void place(Pos pos, Vec3 p) {
  MazeNode &node = maze_nodes(pos.maze)[pos.node];
  node.x = p.x, node.y = p.y, node.z = p.z;
}

struct Rule {
  std::function<void(Maze *, int32_t)> apply;
  std::function<Vec3(Vec3)> expected;
};

TEST(Transform, EachFollowsItsRuleOnTheLevelsAskedFor) {
  const Vec3 axis = {3, -40, 0.25};
  const Rule rules[] = {{[](Maze *m, int32_t r) {
                           Maze_translate(m, {3, -2, 0.25}, r);
                         },
                         [](Vec3 p) {
                           return Vec3{p.x + 3, p.y - 2, p.z + 0.25};
                         }},
                        {[](Maze *m, int32_t r) { Maze_scale(m, -1.5, r); },
                         [](Vec3 p) {
                           return Vec3{-1.5 * p.x, -1.5 * p.y, -1.5 * p.z};
                         }},
                        {[](Maze *m, int32_t r) { Maze_map_positions(m, warp_position, r); },
                         [](Vec3 p) {
                           return 2 * p + 1.5 * Vec3{std::sin(p.x), std::sin(p.y), std::sin(p.z)};
                         }},
                        {[](Maze *m, int32_t r) { Maze_height_wave(m, r); },
                         [](Vec3 p) {
                           return p + Vec3{0, 0, 4 * std::sin(p.x / 4) + 4 * std::sin(p.y / 4)};
                         }},
                        {[](Maze *m, int32_t r) {
                           Maze_rotate(m, {0, 0, pi / 2}, r);
                         },
                         [](Vec3 p) {
                           return Vec3{-p.y, p.x, p.z};
                         }},
                        {[axis](Maze *m, int32_t r) { Maze_rotate(m, axis, r); },
                         [axis](Vec3 p) { return Mat3_rotation(axis) * p; }},
                        {[](Maze *m, int32_t r) {
                           Maze_rotate(m, {0, 0, 0}, r);
                         },
                         [](Vec3 p) { return p; }}};
  for (const Rule &rule : rules)
    for (const int32_t recursive : {0, 1}) {
      const ThreeLevels t = scenario_three_levels();
      const OwnedMaze tree(t.root);
      const Vec3 p = {5, -2, 0.5};
      for (const Pos pos : {Pos{t.root, 1}, Pos{t.root, 0}, Pos{t.m1, 3}, Pos{t.n3, 1}}) {
        place(pos, p);
        rule.apply(t.root, recursive);
        const bool moves = recursive != 0 || pos.maze == t.root;
        EXPECT_LT(length(Pos_position(pos) - (moves ? rule.expected(p) : p)), 1e-12);
      }
    }
}

TEST(Transform, BoundsCoverPlainNodesAndTheFirstOfEachMaze) {
  const ThreeLevels t = scenario_three_levels();
  const OwnedMaze tree(t.root);
  place({t.root, 1}, {-100, 0, 0}); // a container, and not the first node
  place({t.n3, 1}, {1, 0, 7});
  place({t.n2, 2}, {2, -4, 0});
  Vec3 low, high;
  Maze_bounds(t.root, &low, &high);
  EXPECT_EQ(length(low - Vec3{0, -4, 0}) + length(high - Vec3{3, 0, 7}), 0.0);
  scenario_hold(t.n3, 0, scenario_path(6));
  place({t.n3, 0}, {-9, 0, 0});
  Maze_bounds(t.root, &low, &high);
  EXPECT_EQ(length(low - Vec3{-9, -4, 0}) + length(high - Vec3{5, 0, 7}), 0.0);
}

TEST(Transform, QuadAngleIsThatOfTheGridModuloAQuarterTurn) {
  for (double angle = -3.0; angle < 3.0; angle += 0.17) {
    const OwnedMaze grid(Maze_grid3d(3, 3, 2));
    Maze_rotate(grid.get(), {0, 0, angle}, 0);
    for (int32_t node = 0; node < 9; ++node)
      EXPECT_NEAR(std::remainder(Maze_quad_angle(grid.get(), node) - angle, pi / 2), 0, 1e-12);
  }
  const OwnedMaze upright(Maze_plane_yz(1, 2));
  EXPECT_EQ(Maze_quad_angle(upright.get(), 0), 0.0);
}

} // namespace
