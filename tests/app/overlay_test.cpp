#include "app/overlay.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "maze/attachment.h"
#include "picture.h"
#include "render/maze_label.h"
#include "scenarios.h"
#include "support/strings.h"
#include "text/fonts.h"
#include "text/layout.h"
#include "text/style.h"
#include "text/text.h"

namespace {

struct Line {
  int x, y; // pixels; from the right edge if x is below 0
  std::string words;
};

// The overlay is the same picture as these lines.
void expect_lines(const World &world, int32_t state, double dt, const std::vector<Line> &lines) {
  picture_begin();
  overlay_draw(&world, state, dt);
  const Picture seen = picture_take();
  picture_begin();
  for (const Line &line : lines) {
    const int x = line.x < 0 ? picture_width + line.x - text_width(line.words.c_str()) : line.x;
    text_begin();
    text_print(static_cast<float>(x), static_cast<float>(line.y), 0, 0, line.words.c_str(),
               0xFFFFFF);
    text_end();
  }
  EXPECT_EQ(seen.bgra, picture_take().bgra) << "state " << state;
}

TEST(Overlay, EachStateHasItsWords) {
  fonts_for_test();
  Maze *maze = scenario_path(8);
  World world = world_from_above(maze, {maze, 3});
  world.time = 2 * 3600 + 3 * 60 + 4.9;
  maze->visited = 3;
  expect_lines(world, 0, 0.1, {{0, 0, "Press Space for controls"}});
  const char *help[] = {"Q/Escape = Quit",
                        "Arrow keys, WASD or mouse = Move",
                        "Hold right mouse button or Ctrl+arrows = Rotate view",
                        "Mouse wheel or Z/X = Zoom in/out",
                        "N = New maze",
                        "F = Show connected area",
                        "R = Simplify maze",
                        "E = Experimental effect",
                        "Space = Toggle help/statistics",
                        "Ctrl-S = Take screenshot",
                        "H = Change plotting type",
                        "G = Toggle grid",
                        "L = Toggle light",
                        "F3,F4,F5,F6 = Stereo mode, swap, depth"};
  std::vector<Line> lines;
  for (const char *line : help)
    lines.push_back({0, static_cast<int>(lines.size()) * 14, line});
  expect_lines(world, 1, 0.1, lines);
  char place[64];
  std::snprintf(place, sizeof place, "Maze %p node 3", static_cast<void *>(maze));
  lines = {{0, 0, "2:03:04"},
           {0, 26, place},
           {0, 52, "3 / 8 nodes visited (37.50%)"},
           {0, 78, "Attachments:"},
           {-1, 0, "62.5 FPS"},
           {-1, 26, "FOV = 90 deg (90 deg 4:3 central region)"}};
  expect_lines(world, 2, 0.016, lines);
  Attachment_add(maze, "lists", 0, nullptr);
  Attachment_add(maze, "voronoi", 0, nullptr);
  lines[3].words = "Attachments: lists, voronoi";
  expect_lines(world, 2, 0.016, lines);
  expect_lines(world, 3, 0.016, {});
  Maze_destroy(maze, 1);
}

// Seen from above, and written by hand: above the maze's corner, and small from the second dot on.
TEST(Label, StandsAboveItsMazeWithASmallLastPart) {
  const auto drawn = [](auto &&draw) {
    fonts_for_test();
    glTranslated(0, 0, -16);
    draw();
    EXPECT_STREQ(current_font->name, "normal");
    return picture_take().bgra;
  };
  Maze *maze = scenario_path(5); // from (0, 0, 0)
  for (const auto &[first, rest] : {std::pair{"1.01", ""}, {"11", ""}, {"1.01", ".01.2"}}) {
    string_assign(&maze->name, (std::string(first) + rest).c_str());
    const auto by_hand = [first = first, rest = rest] {
      font_apply("fmod");
      text3d_begin();
      glColor3f(0.8F, 0.9F, 0.8F);
      text3d_print(0, 3, 0, first, 0, -2, 0, 2, 0, 0);
      const int cells = text_width(first) / 100; // pixels of the font's cell
      text3d_print(2 * (cells + 0.1), 2.9, 0, rest, 0, -1, 0, 1, 0, 0);
      text3d_end();
      font_apply("normal");
    };
    EXPECT_EQ(drawn([maze] { maze_label(maze); }), drawn(by_hand)) << maze->name;
  }
  Maze_destroy(maze, 1);
}

} // namespace
