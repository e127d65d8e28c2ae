#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "generate/flat.h"
#include "generate/owned_maze.h"
#include "generate/paint.h"
#include "generate/transform.h"
#include "scenarios.h"

namespace {

using std::numbers::pi;

// Finds each node's rows by the places of its neighbours, one step along each axis in turn.
void expect_lattice(Maze *made, int32_t w, int32_t h, int32_t d, const Vec3 (&axes)[3]) {
  const OwnedMaze maze(made);
  ASSERT_EQ(maze_count(made), std::max(w, 0) * h * std::max(d, 0));
  const MazeNode *nodes = maze_nodes(made);
  for (int32_t i = 0; i < maze_count(made); ++i) {
    const Vec3 here = i % w * axes[0] + i / w % h * axes[1] + i / (w * h) * axes[2];
    EXPECT_EQ(length(node_position(nodes[i]) - here), 0.0);
    std::vector<int32_t> found;
    for (const Vec3 axis : axes)
      for (const double step : {-1.0, 1.0})
        for (int32_t j = 0; j < maze_count(made); ++j)
          if (length(node_position(nodes[j]) - here - step * axis) < 0.5) found.push_back(j);
    EXPECT_EQ(std::vector<int32_t>(nodes[i].nbr, nodes[i].nbr + nodes[i].degree), found);
  }
}

TEST(Shape, LatticesJoinAllNeighboursInOrder) {
  const Vec3 x = {1, 0, 0}, y = {0, 1, 0}, z = {0, 0, 1};
  for (const int32_t w : {-1, 0, 1, 2, 4}) {
    expect_lattice(Maze_plane_xy(w, 3), w, 3, 1, {x, y, z});
    expect_lattice(Maze_plane_xz(w, 3), w, 3, 1, {x, z, y});
    expect_lattice(Maze_plane_yz(w, 3), w, 3, 1, {y, z, x});
    for (const int32_t d : {-1, 1, 5})
      expect_lattice(Maze_grid3d(w, 3, d), w, 3, d, {x, y, z});
  }
}

void place(Pos pos, Vec3 p) {
  MazeNode &node = maze_nodes(pos.maze)[pos.node];
  node.x = p.x, node.y = p.y, node.z = p.z;
}

TEST(Shape, TransformsAndPaintReachTheLevelsAskedFor) {
  const Vec3 start = {5, -2, 0.5}, p = -1.5 * (start + Vec3{3, -2, 0.25});
  const Vec3 q = p + Vec3{0, 0, 4 * std::sin(p.x / 4) + 4 * std::sin(p.y / 4)};
  const Vec3 end = 2 * q + 1.5 * Vec3{std::sin(q.x), std::sin(q.y), std::sin(q.z)};
  const double third = 2 * pi / 3 / std::sqrt(3.0); // of a turn, about the space diagonal
  for (int32_t recursive = 0; recursive < 2; ++recursive)
    for (const bool deep : {false, true}) {
      const ThreeLevels t = scenario_three_levels();
      const OwnedMaze tree(t.root);
      Maze *maze = deep ? t.n3 : t.root;
      const MazeNode *nodes = maze_nodes(maze); // 1 is a container in the root
      const bool reached = recursive != 0 || !deep;
      Maze_colour_field(
          t.root, [](Vec3 at) { return static_cast<uint32_t>(2 * at.x); }, recursive);
      EXPECT_EQ(nodes[1].self.colour, reached ? 2 : maze_default_colour);
      EXPECT_EQ(nodes[0].edge[0].colour, reached ? 1 : maze_default_colour);
      Maze_paint(t.root, 9, recursive);
      EXPECT_EQ(nodes[1].self.colour, reached ? 9 : maze_default_colour);
      EXPECT_EQ(nodes[0].edge[0].colour, reached ? 9 : maze_default_colour);
      place({maze, 1}, start);
      Maze_translate(t.root, {3, -2, 0.25}, recursive);
      Maze_scale(t.root, -1.5, recursive);
      Maze_height_wave(t.root, recursive);
      Maze_map_positions(t.root, warp_position, recursive);
      Maze_rotate(t.root, {third, third, third}, recursive);
      Maze_rotate(t.root, {0, 0, 0}, recursive);
      const Vec3 wanted = reached ? Vec3{end.z, end.x, end.y} : start;
      EXPECT_LT(length(node_position(nodes[1]) - wanted), 1e-12);
    }
  EXPECT_EQ(colour_field_sine({5 * pi, 0, -5 * pi}), 0x804000u); // crest, middle, trough
}

TEST(Shape, BoundsCoverPlainNodesAndTheFirstOfEachMaze) {
  const ThreeLevels t = scenario_three_levels();
  const OwnedMaze tree(t.root);
  place({t.root, 1}, {-100, 0, 0}); // a container, and not the first node
  place({t.n2, 2}, {2, -4, 7});
  scenario_hold(t.n3, 0, scenario_path(6));
  scenario_hold(t.m2, 1, Maze_new()); // adds nothing
  place({t.n3, 0}, {-9, 0, 0});       // a container, but the first node
  Vec3 low, high;
  Maze_bounds(t.root, &low, &high);
  EXPECT_EQ(length(low - Vec3{-9, -4, 0}) + length(high - Vec3{5, 0, 7}), 0.0);
}

TEST(Shape, QuadAngleIsThatOfTheGridModuloAQuarterTurn) {
  for (double angle = -3.0; angle < 3.0; angle += 0.17) {
    const OwnedMaze grid(Maze_grid3d(3, 3, 2)); // the edge along z has no angle
    Maze_rotate(grid.get(), {0, 0, angle}, 0);
    for (int32_t node = 0; node < 9; ++node)
      EXPECT_NEAR(std::remainder(Maze_quad_angle(grid.get(), node) - angle, pi / 2), 0, 1e-12);
  }
}

} // namespace
