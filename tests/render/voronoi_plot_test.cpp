#include <gtest/gtest.h>

#include "maze/edit.h"
#include "picture.h"
#include "render/apply_view.h"
#include "render/disc.h"
#include "render/voronoi_geometry.h"
#include "render/voronoi_shapes.h"
#include "support/random.h"

namespace {

TEST(VoronoiShapes, ShortEdgesHaveNoWalls) {
  // The edge between the nodes 1 and 2 is y - 2 over the square root of 2 long.
  for (const double y : {2.06, 2.08}) {
    Maze *maze = Maze_new();
    for (const Vec3 p : {Vec3{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {2, y, 0}}) {
      MazeNode node = {};
      MazeNode_init(&node, p.x, p.y, p.z);
      GrowList_append(&maze->nodes, &node);
    }
    for (const int other : {0, 3})
      Maze_join(maze, 1, other); // leaves the edge to node 2
    voronoi_build(maze, 1);
    ShapeList walls;
    voronoi_walls(&walls, maze, 1, nullptr);
    EXPECT_EQ(walls.size(), y < 2.07 ? 0U : 20U) << y;
    Maze_destroy(maze, 1);
  }
}

TEST(Disc, PairsAreAtRightAnglesAndSegmentsHaveAnEnd) {
  rand_seed(22);
  for (int i = 0; i < 100; i++) {
    const double x = rand_real(2) - 1, y = rand_real(2) - 1, z = rand_real(2) - 1;
    for (const Vec3 v : {Vec3{x, y, z}, {x, 0, 0}, {0, y, 0}, {0, 0, z}}) {
      Vec3 a, b;
      perpendicular_pair(v, &a, &b);
      for (const double zero : {dot(a, b), dot(a, v), dot(b, v), length(a) - 1, length(b) - 1})
        EXPECT_NEAR(zero, 0, 1e-12);
    }
  }
  picture_begin();
  const World world = world_from_above(nullptr, Pos_null);
  World_apply_view(&world);
  fan_disc({0, 0, 1}, 1e18, 0x654321, world.camera);
  EXPECT_EQ(picture_colour(picture_take(), pixel_x(8), pixel_y(8)), 0x654321U);
}

} // namespace
