#include "gfx/window.h"

#include <array>
#include <bit>

#include "gfx/display_settings.h"
#include "gfx/error_box.h"
#include "gfx/fake_sdl.h"
#include "own_folder.h"
#include "support/report.h"

namespace {

using Place = std::array<int32_t, 4>; // left, top, width, height

constexpr uint32_t framed = SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE,
                   on_top = SDL_WINDOW_OPENGL | SDL_WINDOW_ALWAYS_ON_TOP,
                   part = on_top | SDL_WINDOW_BORDERLESS,
                   whole = on_top | SDL_WINDOW_FULLSCREEN_DESKTOP,
                   mode = on_top | SDL_WINDOW_FULLSCREEN;

// Opens the window for these settings.
Place open(const char *resolution, const char *offset, bool windowed_too) {
  fake_start();
  windowed = windowed_too ? 1 : 0;
  sdl.displays = {{0, 0, 1920, 1083}, {-1280, 276, 1280, 1024}, {100, -900, 1600, 900}};
  sdl.cursor = {1301, -77};
  Settings list;
  GrowList_init(&list, sizeof(SettingsEntry));
  Settings_set(&list, "Resolution", resolution);
  Settings_set(&list, "Fullscreen offset", offset);
  Resolution_parse(&list);
  Settings_free(&list);
  const bool opened = gfx_open(screen_width, screen_height, "title") != 0;
  EXPECT_EQ(gfx_context_alive(), opened);
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY) == SDL_DISABLE, opened && !windowed_too);
  return std::bit_cast<Place>(sdl.window);
}

// A framed window is centred on the cursor, but kept on the desktop.
TEST(Window, PositionAndStyleFollowTheSettings) {
  constexpr Place nowhere = {}, primary = {0, 0, 1920, 1083}, third = {100, -900, 1600, 900},
                  desktop = {-1280, -900, 3200, 2200};
  const struct {
    const char *resolution;
    Place place;
    uint32_t flags = part;
    const char *offset = "";
  } cases[] = {{"AUTO", {-40, 3, 1920, 1083}, part, "-40, 3"},
               {"automatic", primary, whole}, // not a resolution
               {"Display2", {-1275, 276, 1280, 1024}, part, "5;9"},
               {"display 4", primary, whole}, // no such display
               {"display -4294967294", primary, whole},
               {"Span1-2", {-1280, 0, 3200, 1300}},
               {"span 3.1,4e1 5E+1,6e 35", third, whole}, // 3.1, 4e1 and 5E+1 are numbers
               {"span 0x1", desktop},                     // two numbers, and 0 means all
               {" 1024x 768", {0, 0, 1024, 768}, mode},
               {"1024x769", {0, 0, 1024, 769}}, // no mode of the display
               {"1024x768", {0, 7, 1024, 768}, part, "0,7"},
               {"-5x600", nowhere, 0, "2147483647"},
               {"auto", {869, -401, 865, 649}, framed, "9,9"}, // 0.6 of the display's height
               {"1301x1700", {619, -900, 1301, 1700}, framed}};
  for (const auto &[resolution, place, flags, offset] : cases) {
    SCOPED_TRACE(resolution);
    EXPECT_EQ(open(resolution, offset, flags == framed), place);
    EXPECT_EQ(sdl.window_flags, flags);
  }
}

struct ErrorBox : OwnFolder {};

TEST_F(ErrorBox, IsLoggedAndEndsTheProgramIfFatal) {
  fake_start();
  GTEST_FLAG_SET(death_test_style, "fast"); // in this folder
  EXPECT_EXIT(gfx_fatal_box("no card"), testing::ExitedWithCode(1), "Oh sod it: no card");
  EXPECT_TRUE(contents("graphics_error.log").ends_with(" no card\n"));
}

TEST(Window, FailureNamesAResolutionThatIsTooLarge) {
  fake_start();
  report_set_hooks({.sleep = [](int32_t) {}});
  EXPECT_EXIT(open("99999x5", "", true), testing::ExitedWithCode(1),
              "vorel: no window of 99999 by 5 pixels .*fits the desktop");
}

} // namespace
