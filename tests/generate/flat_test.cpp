#include "generate/flat.h"

#include <gtest/gtest.h>

#include <vector>

#include "generate/owned_maze.h"
#include "maze/pos.h"

namespace {

// Finds each node's rows by the places of its neighbours, one step along each axis in turn.
void expect_lattice(Maze *made, int32_t w, int32_t h, int32_t d, const Vec3 (&axes)[3]) {
  const OwnedMaze maze(made);
  std::vector<Vec3> places;
  for (int32_t z = 0; z < d; ++z)
    for (int32_t y = 0; y < h; ++y)
      for (int32_t x = 0; x < w; ++x)
        places.push_back(x * axes[0] + y * axes[1] + z * axes[2]);
  ASSERT_EQ(maze->nodes.count, places.size());
  for (int32_t i = 0; i < maze_count(made); ++i) {
    const Vec3 here = Pos_position({made, i});
    EXPECT_EQ(length(here - places[static_cast<size_t>(i)]), 0.0);
    std::vector<int32_t> found;
    for (const Vec3 axis : axes)
      for (const double step : {-1.0, 1.0})
        for (int32_t j = 0; j < maze_count(made); ++j)
          if (length(Pos_position({made, j}) - here - step * axis) < 0.5) found.push_back(j);
    const MazeNode &node = maze_nodes(made)[i];
    EXPECT_EQ(std::vector<int32_t>(node.nbr, node.nbr + node.degree), found);
  }
}

TEST(Flat, PlanesAndGridsJoinAllNeighboursInOrder) {
  const Vec3 x = {1, 0, 0}, y = {0, 1, 0}, z = {0, 0, 1};
  for (int32_t w = -1; w <= 4; ++w)
    for (int32_t h = 0; h <= 3; ++h) {
      expect_lattice(Maze_plane_xy(w, h), w, h, 1, {x, y, z});
      expect_lattice(Maze_plane_xz(w, h), w, h, 1, {x, z, y});
      expect_lattice(Maze_plane_yz(w, h), w, h, 1, {y, z, x});
      for (int32_t d = -1; d <= 5; ++d)
        expect_lattice(Maze_grid3d(w, h, d), w, h, d, {x, y, z});
    }
}

} // namespace
