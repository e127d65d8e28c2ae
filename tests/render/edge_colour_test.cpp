#include "render/edge_colour.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "maze/edit.h"
#include "picture.h"
#include "render/age_colour.h"
#include "scenarios.h"

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

// A room with three doors whose holder is the middle of a star, as its own first node is.
struct Star {
  Maze *parent = star();
  Maze *room = star();
  Star() { scenario_hold(parent, 0, room); }
  ~Star() { Maze_destroy(parent, 1); }
  static Maze *star() {
    Maze *maze = scenario_path(4);
    Maze_cut(maze, 1, 2);
    Maze_cut(maze, 2, 3);
    Maze_join(maze, 0, 2);
    Maze_join(maze, 0, 3);
    return maze;
  }
};

TEST(EdgeColour, BrokenBorderColoursTheLevelButNotItsWaysOut) {
  Star star;
  const Pos inside = {star.room, 0};
  const Pos outside = {star.parent, 1};
  const std::pair<uint32_t, uint32_t> levels[] = {
      {0, 0x123456}, {0b010, 0xC0A040}, {0b110, 0x80C040}, {0b111, 0x408040}};
  for (const auto &[mask, colour] : levels) {
    star.room->bordermask = mask;
    EXPECT_EQ(edge_colour(0x123456, inside, {star.room, 1}), colour);
    EXPECT_EQ(edge_colour(0x123456, inside, Pos_null), colour);
    EXPECT_EQ(edge_colour(0x123456, inside, outside), 0x123456u);
  }
  // A root has no border, whatever its mask says.
  star.parent->bordermask = 1;
  EXPECT_EQ(edge_colour(0x123456, outside, {star.parent, 0}), 0x123456u);
  EXPECT_EQ(edge_colour(0xFFFFFF, outside, {star.parent, 0}), 0xFEFEFEu);
}

TEST(EdgeColour, AgesOfUserAndRoamerAddUpAndNeverGiveWhite) {
  Star star;
  World world = world_from_above(star.parent, {star.parent, 1});
  const auto shown = [&](MazeEdge row) { return visit_colour(row, world.cur, Pos_null, &world); };
  const double then = world.time - 10.0; // adds 0x6F4B6F
  EXPECT_EQ(shown({0x102030, never, never}), 0x102030u);
  EXPECT_EQ(shown({0x102030, then, never}), 0x7F6B9Fu);
  // 0x6F * 64 / 255 = 27, 0x4B, 0x6F * 128 / 255 = 55
  EXPECT_EQ(shown({0x102030, then, then}), 0x9AB6D6u);
  EXPECT_EQ(shown({0xA0A0A0, world.time, never}), 0xFEFEFEu);
  world.showtrail = 0;
  EXPECT_EQ(shown({0x102030, then, then}), 0x102030u);
  EXPECT_EQ(visit_colour({0x102030, then, then}, world.cur, Pos_null, nullptr), 0x102030u);
}

} // namespace
