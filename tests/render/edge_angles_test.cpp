#include "render/edge_angles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "maze/edit.h"
#include "maze/pos.h"
#include "scenarios.h"

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double halfwidth = 0.3;
constexpr double tiny = 1e-9;

struct Road {
  Vec3 end;                    // as an offset from the node
  double trim1 = 0, trim2 = 0; // expected, in half-widths
};

// A node with these roads as its rows.
Maze *star(const std::vector<Road> &roads) {
  Maze *maze = Maze_new();
  maze->halfwidth = halfwidth;
  MazeNode node = {};
  MazeNode_init(&node, 3, -2, 1);
  GrowList_append(&maze->nodes, &node);
  for (const Road &road : roads) {
    MazeNode_init(&node, 3 + road.end.x, -2 + road.end.y, 1 + road.end.z);
    Maze_join(maze, 0, static_cast<int32_t>(GrowList_append(&maze->nodes, &node)));
  }
  return maze;
}

Vec3 at(double angle) {
  return {5 * std::cos(angle), 5 * std::sin(angle), 0};
}

// A corner halves the angle to the next road: it lies as far along as a half-width's cotangent.
double mitre(double gap) {
  return 1 / std::tan(gap / 2);
}

TEST(EdgeAngles, CornersLieOnTheEdgesOfBothRoads) {
  const std::vector<Road> meetings[] = {
      {{{4, 0, 3}, 0, 0}},                      // a dead end
      {{{4, 0, 7}, 0, 0}, {{-2, 0, -3}, 0, 0}}, // straight on, climbing
      {{at(0.02), mitre(-0.04), mitre(0.04)}, {at(-0.02), mitre(0.04), mitre(-0.04)}},
      {{at(3), mitre(0.3), mitre(0.9)}, // in another order than the rows'
       {at(-2.9), mitre(2.6), mitre(2 * pi - 6.2)},
       {at(2.1), mitre(0.9), mitre(2.4)},
       {at(3.3), mitre(2 * pi - 6.2), mitre(0.3)},
       {at(-0.3), mitre(2.4), mitre(2.6)}},
      {{at(1), 0, 0}, {at(1.005), 0, 0}},                         // next to nothing between
      {{at(pi - 0.002), 0, 0}, {at(0.002 - pi), 0, 0}},           // the same over the seam
      {{{0, 0, 4}, 0, 0}, {{4, 0, 0}, 0, 0}, {{-4, 0, 0}, 0, 0}}, // upright beside two
  };
  for (const std::vector<Road> &roads : meetings) {
    Maze *maze = star(roads);
    for (size_t k = 0; k < roads.size(); k++) {
      SCOPED_TRACE(testing::Message() << roads.size() << " roads, row " << k);
      const EdgeAngleRec &rec = edgeanglerecs(maze)[k];
      const Vec3 d = roads[k].end;
      const double size = std::hypot(d.x, d.y);
      EXPECT_NEAR(rec.trim1, halfwidth * roads[k].trim1, tiny);
      EXPECT_NEAR(rec.trim2, halfwidth * roads[k].trim2, tiny);
      EXPECT_NEAR(rec.angle, size == 0 ? 0 : std::atan2(d.y, d.x), tiny);
      EXPECT_NEAR(dot(d, rec.corner1), size * rec.trim1, tiny);
      EXPECT_NEAR(d.x * rec.corner1.y - d.y * rec.corner1.x, size * halfwidth, tiny);
      const double corners = length(rec.corner1) + length(rec.corner2);
      EXPECT_EQ(corners == 0, size == 0) << "an upright road has no area";
      if (&roads >= meetings + 4) continue; // without a corner in common
      EXPECT_NEAR(dot(d, rec.corner2), size * rec.trim2, tiny);
      EXPECT_NEAR(d.x * rec.corner2.y - d.y * rec.corner2.x, -size * halfwidth, tiny);
    }
    Maze_destroy(maze, 1);
  }
}

// Across levels, and where places are no numbers.
int32_t roads_that_lead_back(Maze *maze) {
  int32_t roads = 0;
  const EdgeAngleRec *recs = edgeanglerecs(maze);
  Pos ends[pos_max_edges], back[pos_max_edges];
  for (int32_t i = 0; i < maze_count(maze); i++) {
    Maze *below = maze_nodes(maze)[i].submaze;
    if (below != nullptr) roads += roads_that_lead_back(below);
    for (int32_t k = below ? 0 : Pos_alledges(maze, i, ends, nullptr); k-- > 0;) {
      const EdgeAngleRec &rec = recs[i * pos_max_edges + k];
      Pos_alledges(ends[k].maze, ends[k].node, back, nullptr);
      roads += rec.index == k && Pos_equal(back[rec.backindex], {maze, i});
    }
  }
  return roads;
}

TEST(EdgeAngles, RoadsLeadBack) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Maze *root = scenario_nested(3);
  EXPECT_EQ(roads_that_lead_back(root), 13 * 48); // 24 edges a grid, each seen from both ends
  Maze_destroy(root, 1);
  root = star({{{1, 0, 0}}, {{nan, 1, 0}}, {{0, 1, 0}}, {{nan, nan, nan}}, {{-1, 0, 0}}});
  EXPECT_EQ(roads_that_lead_back(root), 10);
  Maze_destroy(root, 1);
}

} // namespace
