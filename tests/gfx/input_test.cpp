#include "gfx/input.h"

#include <tuple>

#include <gtest/gtest.h>

#include "gfx/fake_sdl.h"
#include "gfx/platform.h"
#include "gfx/window.h"

namespace {

// Opens a window of 300 by 200 pixels, centred on (1450, 500).
void open(bool framed) {
  fake_start();
  windowed = framed ? 1 : 0;
  fullscreen_offset_x = 1300;
  fullscreen_offset_y = 400;
  sdl.cursor = {1450, 500};
  ASSERT_EQ(gfx_open(300, 200, "test"), 1);
}

void pump(const std::vector<int> &keys = {}) {
  fake_keys(keys);
  gfx_pump();
}

// A button that is held at the start counts only after a release. One that was pressed in another
// window never counts.
TEST(Input, ButtonsCountIfPressedInTheWindow) {
  open(true);
  sdl.buttons = sdl.own_buttons = SDL_BUTTON_RMASK;
  pump();
  EXPECT_EQ(mouse_buttons, 0u);
  sdl.buttons = 0;
  pump();
  sdl.buttons = SDL_BUTTON_LMASK | SDL_BUTTON_RMASK | SDL_BUTTON_MMASK;
  sdl.own_buttons = SDL_BUTTON_RMASK | SDL_BUTTON_MMASK;
  pump();
  EXPECT_EQ(mouse_buttons, mouse_right | mouse_middle);
}

// Release events go to another program then. A fullscreen window frees the mouse until it is back.
TEST(Input, LosingTheFocusReleasesKeysButtonsAndMouse) {
  const auto mouse = [] {
    return std::tuple(sdl.cursor.x, SDL_ShowCursor(SDL_QUERY), SDL_IsScreenSaverEnabled());
  };
  const std::tuple free(1440, SDL_ENABLE, SDL_TRUE), captured(1450, SDL_DISABLE, SDL_FALSE);
  for (const bool full : {true, false}) {
    SCOPED_TRACE(full ? "fullscreen" : "framed");
    open(!full);
    mouse_wait_release = 0;
    pump();
    sdl.cursor.x = 1440;
    sdl.buttons = sdl.own_buttons = SDL_BUTTON_LMASK;
    pump({SDL_SCANCODE_A});
    EXPECT_EQ(std::pair(key_down('A'), mouse_buttons), std::pair(true, mouse_left));
    sdl.state = 0;
    pump();
    pump({SDL_SCANCODE_B});
    EXPECT_EQ(std::pair(key_down('A'), mouse_buttons), std::pair(false, 0u));
    EXPECT_EQ(mouse(), free);
    sdl.state = SDL_WINDOW_MINIMIZED;
    pump();
    EXPECT_EQ(sdl.minimised, full ? 2 : 0) << "repeated until it is done";
    EXPECT_TRUE(key_down('B')) << "would otherwise seem pressed after the return";
    sdl.state = SDL_WINDOW_INPUT_FOCUS;
    pump();
    EXPECT_EQ(mouse(), full ? captured : free);
    EXPECT_EQ(mouse_buttons, 0u) << "the release was missed";
  }
}

TEST(Input, RelativeMotionReplacesACursorThatCanNotBeMoved) {
  open(true);
  sdl.cursor_moves = false;
  sdl.cursor.x = 1461;
  sdl.motion = {50, 60};
  int32_t dx = 0, dy = 0;
  gfx_mouse_recentre(&dx, &dy);
  EXPECT_EQ(std::pair(dx, dy), std::pair(0, 0)) << "earlier motion is discarded";
  sdl.motion = {3, -4};
  gfx_mouse_recentre(&dx, &dy);
  EXPECT_EQ(std::pair(dx, dy), std::pair(3, -4));
  platform_show_cursor(true);
  EXPECT_FALSE(sdl.relative);
}

TEST(Input, ResizingAndClosingTheWindowAreNoticed) {
  open(true);
  SDL_SetWindowSize(SDL_GL_GetCurrentWindow(), 500, 131);
  pump();
  EXPECT_EQ(std::pair(screen_width, screen_height), std::pair(500, 131));
  gfx_swap(0);
  EXPECT_EQ(sdl.swaps, 1);
  SDL_Event typed = {};
  typed.text = {SDL_TEXTINPUT, 0, 0, "a1"};
  SDL_PushEvent(&typed);
  pump();
  for (const uint32_t expected : {'a', '1', '\0', '\0'})
    EXPECT_EQ(gfx_next_typed_char(), expected);
  SDL_Event close = {};
  close.type = SDL_WINDOWEVENT;
  close.window.event = SDL_WINDOWEVENT_CLOSE;
  SDL_PushEvent(&close);
  pump();
  EXPECT_EQ(quit_requested, 1u);
  EXPECT_EQ(SDL_GL_GetCurrentContext(), nullptr);
}

} // namespace
