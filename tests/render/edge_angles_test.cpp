#include "render/edge_angles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "maze/edit.h"
#include "maze/pos.h"
#include "scenarios.h"

namespace {

// A node with edges to these places beside it, as its rows.
Maze *star(std::initializer_list<Vec3> ends) {
  Maze *maze = scenario_path(1);
  for (const Vec3 end : ends) {
    MazeNode node = {};
    MazeNode_init(&node, end.x, end.y, end.z);
    Maze_join(maze, 0, static_cast<int32_t>(GrowList_append(&maze->nodes, &node)));
  }
  return maze;
}

Vec3 at(double angle) {
  return {5 * std::cos(angle), 5 * std::sin(angle), 0.3};
}

// The approved pictures show corners; here are those that would lie too far to be seen.
TEST(EdgeAngles, NarrowPairsHaveNoCommonCorner) {
  constexpr double pi = 3.14159265358979323846;
  for (const double gap : {0.0099, 0.0101}) { // on both sides of where angles jump by a turn
    Maze *maze = star({at(pi - gap / 2), at(gap / 2 - pi)});
    const double far = gap < 0.01 ? 0 : 0.5 / std::tan(gap / 2);
    EXPECT_NEAR(edgeanglerecs(maze)[0].trim1, far, 1e-9);
    EXPECT_NEAR(edgeanglerecs(maze)[1].trim1, -far, 1e-9);
    Maze_destroy(maze, 1);
  }
}

TEST(EdgeAngles, WildEndsLeadBackAndRecordsAreKept) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  Maze *maze = star({{1, 0, 0}, {nan, 1, 0}, {0, 1, 0}, {nan, nan, nan}, {-1, 0, 0}});
  const EdgeAngleRec *recs = edgeanglerecs(maze);
  for (int32_t k = 0; k < 5; k++) {
    EXPECT_EQ(recs[k].index, k);
    EXPECT_EQ(recs[k].backindex, 0);
    EXPECT_EQ(recs[(k + 1) * pos_max_edges].backindex, k);
  }
  scenario_move(maze, 1, {0, -1, 0});
  EXPECT_EQ(edgeanglerecs(maze)[0].angle, 0);
  Maze_destroy(maze, 1);
}

} // namespace
