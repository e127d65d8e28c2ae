#include "app/overlay.h"

#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/window.h"
#include "maze/attachment.h"
#include "picture.h"
#include "scenarios.h"
#include "text/fonts.h"
#include "text/layout.h"
#include "text/text.h"

namespace {

constexpr int width = 640, height = 300; // wider than 4:3

struct Line {
  int x, y; // pixels; from the right edge if x is below 0
  std::string words;
};

void expect_statistics(const World &world, const std::vector<Line> &lines) {
  picture_begin();
  gfx_resize(width, height);
  overlay_draw(&world, 2, 0.016);
  const Picture seen = picture_take();
  picture_begin();
  gfx_resize(width, height);
  for (const Line &line : lines) {
    const int x = line.x < 0 ? width + line.x - text_width(line.words.c_str()) : line.x;
    text_begin();
    text_print(static_cast<float>(x), static_cast<float>(line.y), 0, 0, line.words.c_str(),
               0xFFFFFF);
    text_end();
  }
  EXPECT_EQ(seen.bgra, picture_take().bgra);
}

// The other states are among the approved pictures; here stands an address.
TEST(Overlay, StatisticsAreThoseOfTheUsersMaze) {
  fonts_for_test();
  const ThreeLevels t = scenario_three_levels();
  World world = world_from_above(t.root, {t.n2, 1});
  world.time = 2 * 3600 + 3 * 60 + 4.9;
  t.n2->visited = 2;
  Attachment_add(t.root, "lists", 0, nullptr);
  char place[64];
  std::snprintf(place, sizeof place, "Maze %p node 1", static_cast<void *>(t.n2));
  std::vector<Line> lines = {{0, 0, "2:03:04"},
                             {0, 26, place},
                             {0, 52, "2 / 3 nodes visited (66.67%)"},
                             {0, 78, "Attachments:"},
                             {-1, 0, "62.5 FPS"},
                             {-1, 26, "FOV = 115.989 deg (90 deg 4:3 central region)"}};
  expect_statistics(world, lines);
  Attachment_add(t.n2, "lists", 0, nullptr);
  Attachment_add(t.n2, "voronoi", 0, nullptr);
  lines[3].words = "Attachments: lists, voronoi";
  expect_statistics(world, lines);
  Maze_destroy(t.root, 1);
}

} // namespace
