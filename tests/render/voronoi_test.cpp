#include "render/voronoi_geometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "generate/new_tree.h"
#include "generate/topologies.h"
#include "generate/relax.h"
#include "generate/transform.h"
#include "maze/edit.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "picture.h"
#include "render/disc.h"
#include "render/gl/view.h"
#include "render/voronoi_cut.h"
#include "render/voronoi_shapes.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/small_world.h"

namespace {

constexpr double slack = 2e-6; // above the tolerance of a cut
constexpr double infinite = std::numeric_limits<double>::infinity();

// Positive if the corner is nearer to q than to p, zero on their bisector.
double beyond(const VoronoiCorner &c, Vec3 p, Vec3 q) {
  return (c.x - (p.x + q.x) / 2) * (q.x - p.x) + (c.y - (p.y + q.y) / 2) * (q.y - p.y);
}

// No corner is nearer to another node within five times the longest edge, and each edge is on the
// bisector to its site, or on a square of three times that edge.
void expect_cell(Maze *maze, int32_t i, int32_t across_levels) {
  const Vec3 p = node_position(maze_nodes(maze)[i]);
  Pos ends[pos_max_edges];
  const int32_t count = Pos_edges(maze, i, across_levels, ends, nullptr);
  double longest = 0;
  for (int32_t e = 0; e < count; e++)
    if (ends[e].maze == maze) longest = std::max(longest, length(Pos_position(ends[e]) - p));
  const auto [corners, corner_count] = voronoi_cell(maze, i);
  for (int32_t k = 0; k < corner_count; k++) {
    for (int32_t j = 0; j < maze_count(maze); j++) {
      const Vec3 q = node_position(maze_nodes(maze)[j]);
      if (!(length(q - p) <= 5 * longest)) continue;
      EXPECT_LE(beyond(corners[k], p, q), slack) << i << " " << j;
    }
    const int32_t site = corners[k].site;
    const auto is_site = [&](Pos end) { return Pos_equal(end, {maze, site}); };
    EXPECT_EQ(corners[k].joined, site < 0 ? -1 : std::any_of(ends, ends + count, is_site)) << i;
    for (const VoronoiCorner &end : {corners[k], corners[(k + 1) % corner_count]}) {
      const double rim = std::max(std::abs(end.x - p.x), std::abs(end.y - p.y)) - 3 * longest;
      const double off = site < 0 ? rim : beyond(end, p, node_position(maze_nodes(maze)[site]));
      EXPECT_NEAR(off, 0, slack) << i << " at " << site;
    }
  }
}

void expect_cells(Maze *maze, int32_t across_levels) {
  voronoi_build(maze, across_levels);
  for (int32_t i = 0; i < maze_count(maze); i++) {
    Maze *below = maze_nodes(maze)[i].submaze;
    if (below != nullptr) expect_cells(below, across_levels);
    expect_cell(maze, i, across_levels);
  }
}

Maze *jittered(Maze *maze, double by) {
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const double dx = rand_real(by), dy = rand_real(by), dz = rand_real(by);
    scenario_move(maze, i, node_position(maze_nodes(maze)[i]) + Vec3{dx, dy, dz});
  }
  return maze;
}

TEST(Voronoi, CellsAreNearestToTheirNodes) {
  rand_seed(12);
  // In the fifth, many sites are above one another.
  Maze *mazes[] = {Maze_plane_xy(13, 17),
                   Maze_honeycomb(6, 1),
                   Maze_sphere(6),
                   Maze_box(5, 6, 4),
                   Maze_plane_xz(12, 9),
                   jittered(Maze_plane_xy(18, 18), 0.7),
                   jittered(Maze_grid3d(6, 6, 6), 0.7),
                   jittered(Maze_plane_xy(12, 12), 1e-6),
                   scenario_random(300, 900),
                   scenario_nested(2),
                   Maze_new_tree(2),
                   Maze_new()};
  for (Maze *maze : mazes) {
    SCOPED_TRACE(maze_count(maze));
    expect_cells(maze, 0);
    if (maze_count(maze) > 0) Maze_smooth(maze, 0.7); // moves nodes closer together
    expect_cells(maze, 1);
    Maze_destroy(maze, 1);
  }
}

// Positions that are not finite, or whose squares are infinite, change at most the cells around
// them.
TEST(Voronoi, PositionsThatAreNotFiniteLeaveOtherCellsAlone) {
  const Vec3 positions[] = {{infinite, 0, 0}, {3, NAN, 0}, {1e200, -1e200, 1e200}, {2, 1.2e154, 0}};
  for (const Vec3 p : positions) {
    Maze *maze = Maze_plane_xy(7, 7);
    scenario_move(maze, 24, p);
    voronoi_build(maze, 1);
    for (const int32_t far : {0, 6, 42, 48})
      expect_cell(maze, far, 1);
    Maze_scale(maze, 0, 0); // all others in one place
    voronoi_build(maze, 0);
    Maze_destroy(maze, 1);
  }
}

// Nested mazes are off their lattice by rounding errors, which must not remove cells.
TEST(Voronoi, RoundingErrorsOfANestedLatticeEmptyNoCell) {
  rand_seed(29);
  Maze *root = Maze_new_tree(0);
  Maze *nested = maze_nodes(root)[115].submaze;
  ASSERT_EQ(maze_count(nested), 271);
  voronoi_build(nested, 1);
  for (int32_t i = 0; i < maze_count(nested); i++)
    EXPECT_GT(voronoi_cell(nested, i).count, 0) << i;
  const double x = voronoi_cell(nested, 7).corners->x;
  Maze_scale(nested, 0.9, 0);
  voronoi_attach_missing(nested, 1);
  EXPECT_EQ(voronoi_cell(nested, 7).corners->x, x) << "cells are built once";
  Maze_destroy(root, 1);
}

// The bisector runs within the tolerance of one side of the square, and nearly along it.
TEST(Voronoi, CutsKeepCornersInTheirCell) {
  CutCell cell;
  cut_cell_start(&cell, {0, 0, 0}, 3);
  EXPECT_TRUE(cut_cell(&cell, {0, 0, 0}, {{6 - 3e-7, -7e-8, 0}, 1}));
  for (size_t k = 0; k < cell.count; k++)
    EXPECT_LT(std::abs(cell.corners[k].y), 3.1);
}

TEST(Landscape, ShortEdgesHaveNoWalls) {
  for (const double y : {2.06, 2.08}) { // the cells of 1 and 2 share (y - 2) / sqrt(2)
    Maze *maze = scenario_grid(2, 2, 2, {1, 1, 0});
    scenario_move(maze, 3, {2, y, 0});
    Maze_cut(maze, 0, 2);
    Maze_cut(maze, 2, 3);
    voronoi_build(maze, 1);
    ShapeList walls;
    voronoi_walls(&walls, maze, 1, 0);
    EXPECT_EQ(walls.size(), y < 2.07 ? 0U : 20U) << y;
    Maze_destroy(maze, 1);
  }
}

TEST(Disc, HasALimitedNumberOfSegments) {
  picture_begin();
  const SmallWorld world(Maze_new());
  World_apply_view(&world);
  fan_disc({0, 0, 1}, 1e18, 0x654321, world.camera);
  EXPECT_EQ(picture_colour(picture_take(), 480, 80), 0x654321U);
}

} // namespace
