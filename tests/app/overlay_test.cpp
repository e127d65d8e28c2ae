#include "app/overlay.h"

#include <algorithm>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "gfx/texture.h"
#include "gfx/window.h"
#include "maze/attachment.h"
#include "picture.h"
#include "render/maze_label.h"
#include "scenarios.h"
#include "text/fmod_table.h"
#include "text/font.h"
#include "text/layout.h"
#include "text/normal_font.h"
#include "text/text.h"

namespace {

struct Line {
  int x, y; // pixels; from the right edge if x is below 0
  std::string words;
};

void build_fonts() {
  const bool kept = gfx_context_alive() && fonts.count > 0; // another test may have ended a context
  picture_begin();
  textures_keep_component_count = 1;
  if (kept) return;
  font_build(normal_font.data(), normal_font_size, "normal");
  uint32_t size = 0;
  uint8_t *bytes = fmod_generate(&size);
  font_build(bytes, size, "fmod");
  std::free(bytes);
}

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
  build_fonts();
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

// The box around what a label lights, in world units seen from above.
struct Lit {
  double left, top, right, bottom;
};

Lit lit_part(const Picture &picture, int from_column, int to_column) {
  int left = picture_width, top = picture_height, right = 0, bottom = 0;
  for (int y = 0; y < picture_height; y++)
    for (int x = from_column; x < to_column; x++) {
      if ((picture_colour(picture, x, y) >> 8 & 255) < 115) continue;
      left = std::min(left, x);
      right = std::max(right, x + 1);
      top = std::min(top, y);
      bottom = std::max(bottom, y + 1);
    }
  return {(left - 320) / 20.0, (240 - top) / 20.0, (right - 320) / 20.0, (240 - bottom) / 20.0};
}

TEST(Label, StandsAboveItsMazeWithASmallLastPart) {
  build_fonts();
  Maze *maze = scenario_path(5); // from (0, 0, 0)
  for (const char *name : {"1.01", "11", "1.01.01"}) {
    maze->name = const_cast<char *>(name);
    picture_begin();
    glTranslated(0, 0, -16);
    maze_label(maze);
    const Picture picture = picture_take();
    EXPECT_STREQ(current_font->name, "normal");
    // A "1" of the font is 2 by 4 tiles of a fifth of the cell, which is 2 high.
    const Lit one = lit_part(picture, 320, 336);
    EXPECT_NEAR(one.top, 3.0, 0.2) << name;
    EXPECT_NEAR(one.bottom, 3.0 - 2.0 * 0.8, 0.15) << name;
    EXPECT_GE(one.left, 0) << name;
  }
  picture_begin();
  glTranslated(0, 0, -16);
  maze_label(maze);
  const Picture picture = picture_take();
  font_select(rows<Font *>(fonts)[1]);
  const int cells = text_width("1.01") / text_height;
  font_select(rows<Font *>(fonts)[0]);
  const double start = 2 * (cells + 0.1);
  const Lit rest = lit_part(picture, 320 + static_cast<int>((start + 0.45) * 20), picture_width);
  EXPECT_NEAR(rest.top, 2.9, 0.15);
  EXPECT_NEAR(rest.bottom, 2.9 - 0.8, 0.1) << "half the size";
  maze->name = nullptr;
  Maze_destroy(maze, 1);
}

} // namespace
