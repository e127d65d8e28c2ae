#include "render/edge_colour.h"

#include <gtest/gtest.h>

#include <utility>

#include "maze/edit.h"
#include "picture.h"
#include "render/age_colour.h"
#include "scenarios.h"

namespace {

// At each band's edge, which belongs to the band below, and within it. By hand for ages of 0.01 to
// 1e8: grey of 123, 107, 91, 75, 59, 43, 27 and then 17, to which the bands add 0 or 36, at 1e7 18.
TEST(AgeColour, RunsThroughItsBands) {
  const struct {
    double age;
    uint32_t colour;
  } ages[] = {{-5, 0x9F9F9F},     {0, 0x9F9F9F},       {0.01, 0x9F9F9F},  {0.032, 0x979797},
              {0.1, 0x8F8F8F},    {0.32, 0x877587},    {1, 0x7F7F7F},     {3.2, 0x775365},
              {10, 0x6F4B6F},     {32, 0x675543},      {100, 0x5F3B3B},   {320, 0x455733},
              {1000, 0x4F4F2B},   {3200, 0x234735},    {10000, 0x1B3F1B}, {32000, 0x132537},
              {100000, 0x113535}, {320000, 0x1A1A2C},  {1e+06, 0x111135}, {3.2e+06, 0x1A1A1A},
              {1e+07, 0x232323},  {3.2e+07, 0x111111}, {1e+08, 0x111111}};
  for (const auto &[age, colour] : ages)
    EXPECT_EQ(agecolour_rgb(age), colour) << age << std::hex << " 0x" << agecolour_rgb(age);
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
