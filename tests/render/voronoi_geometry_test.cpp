#include "render/voronoi_geometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <vector>

#include "generate/carve.h"
#include "generate/choose.h"
#include "generate/closed.h"
#include "generate/curved.h"
#include "generate/flat.h"
#include "generate/relax.h"
#include "generate/transform.h"
#include "maze/pos.h"
#include "render/bucket_grid.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

constexpr double slack = 2e-6; // above the tolerance of a cut
constexpr double infinite = std::numeric_limits<double>::infinity();

Vec3 random_in(Vec3 low, Vec3 size) {
  const double x = rand_real(1), y = rand_real(1), z = rand_real(1);
  return low + Vec3{size.x * x, size.y * y, size.z * z};
}

TEST(BucketGrid, HasACellForEachPointAndOneWhereThereIsNoBox) {
  const struct {
    Vec3 size;
    int32_t count, nx, ny, nz;
  } cases[] = {
      {{10, 10, 0}, 100, 10, 10, 1}, {{3, 1, 0}, 12, 6, 2, 1},        {{3, 1, 0}, 13, 7, 2, 1},
      {{1, 1, 1}, 28, 4, 4, 4},      {{0, 0, 5}, 9, 1, 1, 9},         {{5, 5, 5}, 1, 1, 1, 1},
      {{0, 0, 0}, 50, 1, 1, 1},      {{infinite, 1, 1}, 50, 1, 1, 1}, {{NAN, 1, 1}, 50, 1, 1, 1},
      {{1, 1, NAN}, 50, 1, 1, 1},    {{1e308, 1e308, 0}, 4, 2, 2, 1}};
  for (const auto &[size, count, nx, ny, nz] : cases) {
    BucketGrid grid;
    bucket_grid_new(&grid, {0, 0, 0}, size, count);
    EXPECT_EQ(std::tuple(grid.nx, grid.ny, grid.nz), std::tuple(nx, ny, nz)) << size.x << count;
    for (const Vec3 wild : {Vec3{NAN, infinite, -infinite}, Vec3{1e300, -1e300, 0}})
      bucket_grid_add(&grid, wild, 0); // must find some cell
    bucket_grid_free(&grid);
  }
}

TEST(BucketGrid, BallIsAPlainScanInTheOrderOfCells) {
  rand_seed(11);
  const Vec3 low = {-3, 4, 5};
  for (const Vec3 size : {Vec3{20, 30, 0}, {9, 8, 7}, {40, 0, 0}, {0, 0, 0}, {1, 2, 30}}) {
    BucketGrid grid;
    bucket_grid_new(&grid, low, low + size, 300);
    std::vector<Vec3> points;
    for (int32_t i = 0; i < 300; i++) {
      points.push_back(random_in(low - 0.05 * size, 1.1 * size)); // some outside
      bucket_grid_add(&grid, points.back(), i);
    }
    for (int query = 0; query < 40; query++) {
      const Vec3 p = random_in(low - 0.2 * size, 1.4 * size);
      const double radius = rand_real(12);
      std::vector<std::tuple<int32_t, int32_t, int32_t, int32_t>> expected;
      for (int32_t i = 0, x, y, z; i < 300; i++) {
        bucket_grid_cell(&grid, points[static_cast<size_t>(i)], &x, &y, &z);
        const bool within = length(points[static_cast<size_t>(i)] - p) <= radius;
        if (within) expected.emplace_back(x, y, z, -i);
      }
      std::sort(expected.begin(), expected.end());
      GrowList found;
      bucket_grid_ball(&found, &grid, p, radius);
      ASSERT_EQ(found.count, expected.size());
      for (uint32_t row = 0; row < found.count; row++)
        EXPECT_EQ(rows<int32_t>(found)[row], -std::get<3>(expected[row]));
      GrowList_free(&found);
    }
    bucket_grid_free(&grid);
  }
}

const GrowList &cell_of(const Maze *maze, int32_t i) {
  return rows<GrowList>(*voronoi_cells(maze))[i];
}

// The nodes that `i` is joined to within its maze.
std::vector<int32_t> joined_nodes(Maze *maze, int32_t i, int32_t across_levels) {
  std::vector<int32_t> found;
  Pos ends[pos_max_edges];
  for (int32_t e = Pos_edges(maze, i, across_levels, ends, nullptr); e-- > 0;)
    if (ends[e].maze == maze) found.push_back(ends[e].node);
  return found;
}

// By how much a corner lies beyond the line halfway between two nodes.
double beyond(const VoronoiCorner &c, Vec3 p, Vec3 q) {
  return (c.x - (p.x + q.x) / 2) * (q.x - p.x) + (c.y - (p.y + q.y) / 2) * (q.y - p.y);
}

// What makes a cell of node i: its corners go clockwise, none lies beyond the line halfway to any
// node within five times the longest way, and each side lies on the line of its site, or on the rim
// of a square of three times that way.
void expect_cell(Maze *maze, int32_t i, int32_t across_levels) {
  const Vec3 p = node_position(maze_nodes(maze)[i]);
  const std::vector<int32_t> near = joined_nodes(maze, i, across_levels);
  double most = 0;
  for (const int32_t j : near)
    most = std::max(most, length(node_position(maze_nodes(maze)[j]) - p));
  const GrowList &cell = cell_of(maze, i);
  const VoronoiCorner *c = rows<VoronoiCorner>(cell);
  for (uint32_t k = 0; k < cell.count; k++) {
    const VoronoiCorner &next = c[(k + 1) % cell.count];
    EXPECT_LE((c[k].x - p.x) * (next.y - p.y) - (c[k].y - p.y) * (next.x - p.x), slack) << i;
    for (int32_t j = 0; j < maze_count(maze); j++) {
      const Vec3 q = node_position(maze_nodes(maze)[j]);
      if (j == i || !(length(q - p) <= 5 * most)) continue;
      EXPECT_LE(beyond(c[k], p, q), slack) << i << " " << j;
    }
    const int32_t joined = std::count(near.begin(), near.end(), c[k].site) > 0;
    EXPECT_EQ(c[k].joined, c[k].site < 0 ? -1 : joined);
    for (const VoronoiCorner &end : {c[k], next}) {
      const double rim = std::max(std::abs(end.x - p.x), std::abs(end.y - p.y)) - 3 * most;
      const int32_t site = c[k].site;
      const double off = site < 0 ? rim : beyond(end, p, node_position(maze_nodes(maze)[site]));
      EXPECT_NEAR(off, 0, slack) << i << " at " << site;
    }
  }
}

void expect_cells(Maze *maze, int32_t across_levels) {
  voronoi_build(maze, across_levels);
  ASSERT_EQ(voronoi_cells(maze)->count, maze->nodes.count);
  for (int32_t i = 0; i < maze_count(maze); i++) {
    Maze *below = maze_nodes(maze)[i].submaze;
    if (below != nullptr) expect_cells(below, across_levels);
    expect_cell(maze, i, across_levels);
  }
}

Maze *shaken(Maze *maze, double by) {
  for (int32_t i = maze_count(maze); i-- > 0;) {
    MazeNode &node = maze_nodes(maze)[i];
    const Vec3 p = random_in(node_position(node), {by, by, by});
    std::tie(node.x, node.y, node.z) = std::tuple(p.x, p.y, p.z);
  }
  return maze;
}

Maze *carved(Maze *maze) {
  Maze_carve(maze);
  Maze_scale(maze, 2.5, 0);
  return maze;
}

TEST(VoronoiGeometry, CellsAreWhatIsNearestToTheirNodes) {
  rand_seed(12);
  Maze *mazes[] = {carved(Maze_plane_xy(23, 17)),
                   carved(Maze_hexagon(8)),
                   carved(Maze_honeycomb(8, 1)),
                   carved(Maze_polar(12, 1)),
                   carved(Maze_sphere(7)),
                   carved(Maze_torus(8, 3)),
                   carved(Maze_mobius(9, 3)),
                   carved(Maze_box(5, 6, 4)),
                   carved(Maze_grid3d(7, 6, 5)),
                   Maze_plane_xz(12, 9), // all sites in one row, one above the other
                   shaken(Maze_plane_xy(20, 20), 0.7),
                   shaken(Maze_grid3d(6, 6, 6), 0.7),
                   shaken(Maze_plane_xy(12, 12), 1e-6),
                   scenario_random(300, 900),
                   scenario_nested(2),
                   Maze_choose(2),
                   Maze_new()};
  for (Maze *maze : mazes) {
    SCOPED_TRACE(maze_count(maze));
    for (int32_t turn = 0; turn < 2 && maze_count(maze) > 0; turn++) {
      expect_cells(maze, turn);
      Maze_smooth(maze, 0.7); // as it is while nodes are pulled together
    }
    voronoi_build(maze, 1);
    Maze_destroy(maze, 1); // the cells are released after the nodes
  }
}

// Places that are no numbers, or whose squares are infinite, spoil the cells around them at most.
TEST(VoronoiGeometry, WildPlacesEndAndLeaveTheRestAlone) {
  const Vec3 wild[] = {
      {infinite, 0, 0}, {3, NAN, 0}, {1e200, -1e200, 1e200}, {2, 1.2e154, 0}, {-1.2e154, 1, 0}};
  for (const Vec3 p : wild) {
    Maze *maze = Maze_plane_xy(7, 7);
    MazeNode &node = maze_nodes(maze)[24];
    std::tie(node.x, node.y, node.z) = std::tuple(p.x, p.y, p.z);
    voronoi_build(maze, 1);
    for (const int32_t far : {0, 6, 42, 48})
      expect_cell(maze, far, 1);
    Maze_scale(maze, 0, 0); // all in one place, but for that one
    voronoi_build(maze, 0);
    Maze_destroy(maze, 1);
  }
}

TEST(VoronoiGeometry, NoiseOfANestedLatticeEmptiesNoCell) {
  rand_seed(29);
  Maze *root = Maze_choose(0);
  Maze *room = maze_nodes(root)[115].submaze;
  ASSERT_EQ(maze_count(room), 271);
  voronoi_build(room, 1);
  for (int32_t i = 0; i < maze_count(room); i++)
    EXPECT_GT(cell_of(room, i).count, 0U) << i;
  Maze_destroy(root, 1);
}

} // namespace
