#include "render/edge_colour.h"

#include <gtest/gtest.h>

#include <cmath>

#include "maze/edit.h"
#include "picture.h"
#include "render/age_colour.h"

namespace {

// The ages' colours at full precision, written from the description of the bands as corners that
// are joined by straight lines: white, magenta, red, yellow, green, cyan, blue, half-grey, black.
// Decade t = 1 is the first corner; `grey` fades by 16 a decade.
double age_channel(double age, int channel) {
  static constexpr double corner[10][3] = {
      {36, 36, 36}, {36, 36, 36}, {36, 0, 36}, {36, 0, 0},   {36, 36, 0},
      {0, 36, 0},   {0, 36, 36},  {0, 0, 36},  {18, 18, 18}, {0, 0, 0},
  };
  const double t = std::log10(std::max(1.0, age * 100.0));
  const double grey = 17.0 + 16.0 * std::max(6.638888888888889 - t, 0.0);
  if (t >= 9) return grey;
  const auto band = static_cast<size_t>(t);
  const double part = t - std::floor(t);
  const double *from = corner[band];
  const double *to = corner[band + 1];
  return grey + from[channel] * (1 - part) + to[channel] * part;
}

TEST(AgeColour, FollowsTheCornersOfItsBands) {
  for (double t = -1.0; t < 11.0; t += 0.0371) {
    const double age = std::pow(10.0, t) / 100.0;
    const uint32_t colour = agecolour_rgb(age);
    for (int channel = 0; channel < 3; channel++) {
      const int byte = static_cast<int>(colour >> (16 - 8 * channel) & 255);
      EXPECT_NEAR(byte, age_channel(age, channel), 2.01) << "age " << age << " channel " << channel;
    }
  }
}

TEST(AgeColour, BandEdgesBelongToTheBandBelow) {
  EXPECT_EQ(agecolour_rgb(0.0), 0x9F9F9Fu); // 17 + 16 * 6.63888 = 123, and 36
  EXPECT_EQ(agecolour_rgb(-5.0), agecolour_rgb(0.0));
  EXPECT_EQ(agecolour_rgb(0.01), agecolour_rgb(0.0));
  // At exactly one second t is 2, with nothing of the band run through: white, not magenta.
  EXPECT_EQ(agecolour_rgb(1.0), 0x7F7F7Fu); // 17 + trunc(16 * 4.63888) = 91, and 36
  EXPECT_EQ(agecolour_rgb(10.0), 0x6F4B6Fu);
  EXPECT_EQ(agecolour_rgb(1e8), 0x111111u);
}

struct BorderScene {
  Maze *parent = Maze_new();
  Maze *child = Maze_new();
  BorderScene() {
    MazeNode node = {};
    for (int i = 0; i < 4; i++) {
      MazeNode_init(&node, i, 0, 0);
      GrowList_append(&parent->nodes, &node);
      GrowList_append(&child->nodes, &node);
    }
    for (int i = 1; i < 4; i++) {
      Maze_join(parent, 0, i);
      Maze_join(child, 0, i);
    }
    maze_nodes(parent)[0].submaze = child;
    child->parent = parent;
  }
  ~BorderScene() { Maze_destroy(parent, 1); }
  BorderScene(const BorderScene &) = delete;
  BorderScene &operator=(const BorderScene &) = delete;
};

TEST(EdgeColour, BrokenBorderColoursTheLevelButNotItsWaysOut) {
  BorderScene scene;
  const Pos inside = {scene.child, 0};
  const Pos neighbour = {scene.child, 1};
  const Pos outside = {scene.parent, 1};
  EXPECT_EQ(edge_colour(0x123456, inside, neighbour), 0x123456u);
  scene.child->bordermask = 0b010;
  EXPECT_EQ(edge_colour(0x123456, inside, neighbour), 0xC0A040u);
  EXPECT_EQ(edge_colour(0x123456, inside, Pos_null), 0xC0A040u);
  EXPECT_EQ(edge_colour(0x123456, inside, outside), 0x123456u);
  scene.child->bordermask = 0b110;
  EXPECT_EQ(edge_colour(0x123456, inside, neighbour), 0x80C040u);
  scene.child->bordermask = 0b111;
  EXPECT_EQ(edge_colour(0x123456, inside, neighbour), 0x408040u);
  // A root has no border, whatever its mask says.
  scene.parent->bordermask = 1;
  EXPECT_EQ(edge_colour(0x123456, outside, {scene.parent, 0}), 0x123456u);
  EXPECT_EQ(edge_colour(0xFFFFFF, outside, {scene.parent, 0}), 0xFEFEFEu);
}

TEST(EdgeColour, AgesOfUserAndRoamerAddUpAndNeverGiveWhite) {
  BorderScene scene;
  World world = world_from_above(scene.parent, {scene.parent, 1});
  const Pos a = {scene.parent, 1};
  MazeEdge row = {0x102030, never, never};
  EXPECT_EQ(visit_colour(row, a, Pos_null, &world), 0x102030u);
  row.usertime = world.time - 10.0; // 0x6F4B6F
  EXPECT_EQ(visit_colour(row, a, Pos_null, &world), 0x7F6B9Fu);
  row.roamertime = row.usertime; // 0x6F * 64 / 255 = 27, 0x4B, 0x6F * 128 / 255 = 55
  EXPECT_EQ(visit_colour(row, a, Pos_null, &world), 0x9AB6D6u);
  EXPECT_EQ(visit_colour(row, a, Pos_null, nullptr), 0x102030u);
  world.showtrail = 0;
  EXPECT_EQ(visit_colour(row, a, Pos_null, &world), 0x102030u);
  world.showtrail = 1;
  row = {0xA0A0A0, world.time, never};
  EXPECT_EQ(visit_colour(row, a, Pos_null, &world), 0xFEFEFEu);
}

} // namespace
