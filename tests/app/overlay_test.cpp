#include "app/overlay.h"

#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "gfx/window.h"
#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "picture.h"
#include "scenarios.h"
#include "text/fonts.h"
#include "text/layout.h"
#include "text/text.h"
#include "world/small_world.h"

namespace {

// The other pages are in the approved pictures; this one shows an address. The window is wider than
// 4:3, and the user's maze is not the root.
TEST(Overlay, StatisticsShowTheUsersMaze) {
  constexpr int width = 640, height = 300;
  fonts_for_test();
  const ThreeLevels t = scenario_three_levels();
  SmallWorld world(t.root);
  world.cur = {t.n2, 1};
  world.time = 2 * 3600 + 3 * 60 + 4.9;
  t.n2->visited = 2;
  Attachment_add(t.root, attachment_gantry, 0, nullptr);
  for (const char *name : {attachment_line_lists, attachment_cells})
    Attachment_add(t.n2, name, 0, nullptr);
  gfx_resize(width, height);
  overlay_draw(&world, 2, 0.016);
  const Picture seen = picture_take();
  char place[64];
  std::snprintf(place, sizeof place, "Maze %p node 1", static_cast<void *>(t.n2));
  picture_begin();
  gfx_resize(width, height);
  const struct {
    bool right;
    int y;
    std::string words;
  } lines[] = {{false, 0, "2:03:04"},
               {false, 26, place},
               {false, 52, "2 / 3 nodes visited (66.67%)"},
               {false, 78, "Attachments: lists, voronoi"},
               {true, 0, "62.5 FPS"},
               {true, 26, "FOV = 115.989 deg (90 deg 4:3 central region)"}};
  for (const auto &[right, y, words] : lines) {
    const int x = right ? width - 1 - text_width(words.c_str()) : 0;
    text_begin();
    text_print(static_cast<float>(x), static_cast<float>(y), 0, 0, words.c_str(), 0xFFFFFF);
    text_end();
  }
  EXPECT_EQ(seen.bgra, picture_take().bgra);
}

} // namespace
