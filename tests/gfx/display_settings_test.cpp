#include "gfx/display_settings.h"

#include <climits>

#include <gtest/gtest.h>

#include "gfx/window.h"

namespace {

TEST(DisplaySettings, ResolutionHasItsGrammar) {
  const int untouched = 12345;
  const struct {
    const char *text;
    int32_t width, height;
  } cases[] = {{"AUTO", 0, 0},
               {"Display2", 0, 2},
               {"display", 0, 0},
               {"display -3x", 0, -3},
               {"display 99999999999", 0, INT_MAX},
               {"span", -1, -1},
               {"SPAN 2", -1, 2},
               {"span1-2", -1, 3},
               {"span 1.5,2e3 4e", -1, 1 | 2 | 8}, // numbers are skipped with fraction and exponent
               {"span 0x10", -1, INT_MIN | 1 << 9}, // 0, and then 10
               {"span 33", -1, 1},
               {"span ,", -1, 0},
               {" 800x 600", 800, 600},
               {"800X600", 800, untouched},
               {"800", 800, untouched},
               {"-1x5", -1, 5},
               {"automatic", untouched, untouched},
               {"", untouched, untouched}};
  for (const auto &c : cases) {
    screen_width = screen_height = untouched;
    Settings list;
    GrowList_init(&list, sizeof(SettingsEntry));
    Settings_set(&list, "Resolution", c.text);
    Resolution_parse(&list);
    EXPECT_TRUE(screen_width == c.width && screen_height == c.height)
        << c.text << ": " << screen_width << ", " << screen_height;
    EXPECT_EQ(list.count, 1u);
    Settings_free(&list);
  }
}

TEST(DisplaySettings, DefaultsAndOffsets) {
  Settings list;
  GrowList_init(&list, sizeof(SettingsEntry));
  int32_t mode = 9, swap = 9;
  fullscreen_offset_x = fullscreen_offset_y = 7;
  Display_settings_apply(&list, &mode, &swap);
  EXPECT_TRUE(mode == 0 && swap == 0 && list.count == 3 && fullscreen_offset_x == 7);
  Settings_set(&list, "Stereo mode", "12");
  Settings_set(&list, "Swap stereo", "yes");
  Settings_set(&list, "Fullscreen offset", "-40, 3");
  Display_settings_apply(&list, &mode, &swap);
  EXPECT_TRUE(mode == 12 && swap == 1 && list.count == 4);
  EXPECT_TRUE(fullscreen_offset_x == -40 && fullscreen_offset_y == 3);
  Settings_set(&list, "Fullscreen offset", "5;9");
  Display_settings_apply(&list, &mode, &swap);
  EXPECT_TRUE(fullscreen_offset_x == 5 && fullscreen_offset_y == 3);
  Settings_free(&list);
  fullscreen_offset_x = fullscreen_offset_y = 0;
}

} // namespace
