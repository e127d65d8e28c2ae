#include "app/overlay.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "gfx/gl_util.h"
#include "gfx/window.h"
#include "maze/attachment.h"
#include "support/colour.h"
#include "text/font.h"
#include "text/layout.h"
#include "text/text.h"

namespace {

constexpr const char *prompt = "Press Space for controls";

constexpr const char *help = "Q/Escape = Quit\n"
                             "Arrow keys, WASD or mouse = Move\n"
                             "Hold right mouse button or Ctrl+arrows = Rotate view\n"
                             "Mouse wheel or Z/X = Zoom in/out\n"
                             "N = New maze\n"
                             "F = Show connected area\n"
                             "R = Simplify maze\n"
                             "E = Experimental effect\n"
                             "Space = Toggle help/statistics\n"
                             "Ctrl-S = Take screenshot\n"
                             "H = Change plotting type\n"
                             "G = Toggle grid\n"
                             "L = Toggle light\n"
                             "F3,F4,F5,F6 = Stereo mode, swap, depth";

void print(int32_t x, int32_t y, const char *text) {
  text_begin();
  text_print(static_cast<float>(x), static_cast<float>(y), 0, 0, text, colour_white);
  text_end();
}

void print_right(int32_t y, const char *text) {
  print(screen_width - 1 - text_width(text), y, text);
}

void print_clock(const World *world, int32_t y) {
  constexpr double max_seconds = 2147483647.0;
  const int32_t seconds = static_cast<int32_t>(std::clamp(world->time, 0.0, max_seconds));
  char text[64];
  std::snprintf(text, sizeof text, "%d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
  print(0, y, text);
}

void print_place(const World *world, int32_t y) {
  char text[64];
  std::snprintf(text, sizeof text, "Maze %p node %d", static_cast<void *>(world->cur.maze),
                world->cur.node);
  print(0, y, text);
}

void print_visited(const Maze *maze, int32_t y) {
  const int32_t nodes = maze_count(maze);
  char text[96];
  std::snprintf(text, sizeof text, "%d / %d nodes visited (%.2lf%%)", maze->visited, nodes,
                100.0 * maze->visited / nodes);
  print(0, y, text);
}

void print_attachments(const Maze *maze, int32_t y) {
  std::string text = "Attachments:";
  const char *separator = " ";
  for (uint32_t i = 0; i < maze->attachments.count; i++) {
    text += separator;
    text += rows<Attachment>(maze->attachments)[i].name;
    separator = ", ";
  }
  print(0, y, text.c_str());
}

void print_frame_rate(double dt, int32_t y) {
  char text[64];
  std::snprintf(text, sizeof text, "%.1lf FPS", 1.0 / dt);
  print_right(y, text);
}

void print_field_of_view(int32_t y) {
  char text[96];
  std::snprintf(text, sizeof text, "FOV = %g deg (%g deg 4:3 central region)", gfx_fov(),
                gfx_fov_43());
  print_right(y, text);
}

void print_statistics(const World *world, double dt) {
  const int32_t step = 2 * text_height;
  print_clock(world, 0);
  print_place(world, step);
  print_visited(world->cur.maze, 2 * step);
  print_attachments(world->cur.maze, 3 * step);
  print_frame_rate(dt, 0);
  print_field_of_view(step);
}

} // namespace

void overlay_draw(const World *world, int32_t helpstate, double dt) {
  if (helpstate == 0) print(0, 0, prompt);
  if (helpstate == 1) print(0, 0, help);
  if (helpstate == 2) print_statistics(world, dt);
}
