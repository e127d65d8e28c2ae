#include "gfx/window.h"

#include <array>
#include <bit>
#include <cstdio>
#include <fstream>
#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "gfx/display_settings.h"
#include "gfx/error_box.h"
#include "gfx/fake_sdl.h"
#include "support/report.h"

namespace {

using Place = std::array<int32_t, 4>; // left, top, width, height

constexpr uint32_t framed = SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE,
                   on_top = SDL_WINDOW_OPENGL | SDL_WINDOW_ALWAYS_ON_TOP,
                   part = on_top | SDL_WINDOW_BORDERLESS,
                   whole = on_top | SDL_WINDOW_FULLSCREEN_DESKTOP,
                   mode = on_top | SDL_WINDOW_FULLSCREEN;

// Opens the window that the settings ask for. A setting without a text is missing.
Place open(const char *resolution, const char *offset, bool windowed_too, int refused = 0) {
  fake_start();
  sdl.contexts_to_refuse = refused;
  windowed = windowed_too ? 1 : 0;
  sdl.displays = {{0, 0, 1920, 1083}, {-1280, 276, 1280, 1024}, {100, -900, 1600, 900}};
  sdl.cursor = {1301, -77};
  Settings list;
  GrowList_init(&list, sizeof(SettingsEntry));
  if (resolution != nullptr) Settings_set(&list, "Resolution", resolution);
  if (offset != nullptr) Settings_set(&list, "Fullscreen offset", offset);
  Resolution_parse(&list);
  Settings_free(&list);
  const bool opened = gfx_open(screen_width, screen_height, "title") != 0;
  EXPECT_EQ(gfx_context_alive(), opened);
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY) == SDL_DISABLE, opened && !windowed_too);
  EXPECT_TRUE(!opened || (screen_width == sdl.window.w && screen_height == sdl.window.h));
  return std::bit_cast<Place>(sdl.window);
}

TEST(Window, IsWhereTheSettingsSay) {
  constexpr Place nowhere = {}, primary = {0, 0, 1920, 1083}, second = {-1280, 276, 1280, 1024},
                  third = {100, -900, 1600, 900}, desktop = {-1280, -900, 3200, 2200};
  const struct {
    const char *resolution;
    Place place;
    uint32_t flags = part;
    const char *offset = nullptr;
  } cases[] = {{nullptr, primary, whole},
               {"AUTO", {-40, 3, 1920, 1083}, part, "-40, 3"},
               {"automatic", primary, whole}, // no resolution at all
               {"Display2", {-1275, 276, 1280, 1024}, part, "5;9"},
               {"display", primary, whole},
               {"display -2x", primary, whole},
               {"display +3", third, whole},
               {"display 4", primary, whole}, // there is no such display
               {"display 4294967298", primary, whole},
               {"display -4294967294", primary, whole},
               {"span", desktop},
               {"SPAN 1", primary, whole},
               {"span1-2", {-1280, 0, 3200, 1300}},
               {"span 2.1,4e1 5E+1,6e 34", second, whole}, // 2.1, 4e1 and 5E+1 are numbers
               {"span 3e,1", {0, -900, 1920, 1983}},
               {"span 0x1", desktop}, // two numbers, and 0 means all
               {"span ,", desktop},
               {"span 4", nowhere},
               {" 800x 600", {0, 0, 800, 600}, mode},
               {"800x601", {0, 0, 800, 601}}, // no mode of the display
               {"801x600", {0, 0, 801, 600}},
               {"800x600", {0, 7, 800, 600}, part, "0,7"},
               {"800x600", {-7, 0, 800, 600}, part, "-7"},
               {"1x1", {0, 0, 1, 1}},
               {"800X600", nowhere},
               {"-1x5", {0, -900, 1920, 1983}},
               {"-5x600", nowhere, 0, "2147483647"},
               {"800x-5", nowhere}};
  for (const auto &[resolution, place, flags, offset] : cases) {
    SCOPED_TRACE(resolution != nullptr ? resolution : "no resolution");
    EXPECT_EQ(open(resolution, offset, false), place);
    EXPECT_EQ(sdl.window_flags, place == nowhere ? 0 : flags);
  }
}

// It has 0.6 of the height. It is centred on the cursor, but kept on the desktop.
TEST(Window, FramedWindowIsNearTheCursor) {
  const std::pair<const char *, Place> cases[] = {{"auto", {869, -401, 865, 649}},
                                                  {"display 2", {892, -384, 818, 614}},
                                                  {"800x700", {901, -427, 800, 700}},
                                                  {"1301x1700", {619, -900, 1301, 1700}},
                                                  {"span", {-1280, -900, 3200, 2200}}};
  for (const auto &[resolution, place] : cases) {
    EXPECT_EQ(open(resolution, "9,9", true), place) << resolution;
    EXPECT_EQ(sdl.window_flags, framed);
  }
}

TEST(Window, FailureIsExplainedAndEndsTheProgram) {
  fake_start();
  const struct {
    const char *driver; // the best one if null, which is none without a display
    int refused;        // contexts
    const char *resolution, *sentence, *words;
  } cases[] = {
      {"none", 0, "auto", "no display .*none not available", "Window Creation"},
      {nullptr, 0, "auto", "no display .*neither DISPLAY", "Window Creation"},
      {"offscreen", 0, "99999x5", "no window of 99999 by 5 pixels", "Window Creation"},
      {"offscreen", 4, "auto", "OpenGL with .*no reason", "Can't Create A GL Rendering Context"}};
  report_sleep = [](int32_t) {};
  for (const auto &[driver, refused, resolution, sentence, words] : cases) {
    const auto fail = [&] {
      dup2(STDERR_FILENO, STDOUT_FILENO);
      SDL_Quit();
      for (const char *name : {"SDL_VIDEODRIVER", "DISPLAY", "WAYLAND_DISPLAY"})
        unsetenv(name);
      SDL_SetHint(SDL_HINT_VIDEODRIVER, driver);
      open(resolution, nullptr, true, refused);
    };
    EXPECT_EXIT(fail(), testing::ExitedWithCode(1),
                std::string("vorel: ") + sentence + "(.|\n)*\\[FATAL ERROR\\] " + words);
  }
}

TEST(Window, ThreeWorseKindsOfContextDoToo) {
  open("auto", nullptr, true, 3);
  EXPECT_TRUE(gfx_context_alive());
}

TEST(Window, ErrorBoxIsLoggedAndShown) {
  fake_start();
  gfx_warning_box("words");
  EXPECT_EQ(sdl.box, "Errr|words");
  std::string log;
  std::getline(std::ifstream("graphics_error.log"), log);
  EXPECT_THAT(log, testing::MatchesRegex("....-...-.. ..:..:.. words"));
  std::remove("graphics_error.log");
  EXPECT_EXIT(gfx_fatal_box("words"), testing::ExitedWithCode(1), "");
  EXPECT_EQ(std::remove("graphics_error.log"), 0);
}

} // namespace
