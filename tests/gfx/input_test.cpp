#include "gfx/input.h"

#include <cstring>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/fake_sdl.h"
#include "gfx/gl_util.h"
#include "gfx/platform.h"
#include "gfx/window.h"

namespace {

struct Input : testing::Test {
  void SetUp() override { open(true); }
  void TearDown() override { gfx_close(); }

  // A window of 300 by 200 pixels, with its middle at (1450, 500).
  static void open(bool framed) {
    fake_start();
    windowed = framed ? 1 : 0;
    fullscreen_offset_x = 1300;
    fullscreen_offset_y = 400;
    sdl.cursor = {1450, 500};
    ASSERT_EQ(gfx_open(300, 200, "test"), 1);
  }
};

uint32_t pump(const std::vector<int> &keys = {}) {
  fake_keys(keys);
  return gfx_pump();
}

SDL_Event new_event(uint32_t type) {
  SDL_Event event = {};
  event.type = type;
  return event;
}

void pump_event(SDL_Event event) {
  SDL_PushEvent(&event);
  pump();
}

// A button that was held at the start counts only after a release, and one that was pressed in
// another program's window never.
TEST_F(Input, ButtonsCountWherePressedInTheWindow) {
  constexpr uint32_t left = SDL_BUTTON_LMASK, right = SDL_BUTTON_RMASK, mid = SDL_BUTTON_MMASK;
  const struct {
    uint32_t held, own, counted;
  } cases[] = {{right, right, 0},
               {0, 0, 0},
               {right, 0, 0},
               {right | mid, right | mid, mouse_right | mouse_middle},
               {left | mid, left, mouse_left},
               {mid, left | mid, mouse_middle}};
  uint32_t before = 0;
  for (const auto &[held, own, counted] : cases) {
    sdl.buttons = held;
    sdl.own_buttons = own;
    pump();
    EXPECT_EQ(std::pair(mouse_buttons, mouse_buttons_prev), std::pair(counted, before)) << held;
    before = counted;
  }
}

TEST_F(Input, TypedTextIsAQueueOf499BytesOfLatin1) {
  SDL_Event text = new_event(SDL_TEXTINPUT), key = new_event(SDL_KEYDOWN);
  std::strcpy(text.text.text, "a\u00E9\u20AC\U0001F600");
  pump_event(text);
  key.key.keysym.sym = SDLK_c;
  pump_event(key); // comes as text too
  key.key.keysym.mod = KMOD_RCTRL;
  pump_event(key);
  key.key.keysym.sym = SDLK_RETURN;
  pump_event(key);
  for (const uint32_t expected : {0x61, 0xE9, 0x3F, 0x3F, 3, 13, 0})
    EXPECT_EQ(gfx_next_typed_char(), expected);
  for (uint32_t i = 0; i < 600; i++)
    input_char_message(0x100 + 'a' + i % 26);
  for (uint32_t i = 0; i < 499; i++)
    ASSERT_EQ(gfx_next_typed_char(), 'a' + i % 26);
  EXPECT_EQ(gfx_next_typed_char(), 0u);
}

TEST_F(Input, KeysHaveTheirCodes) {
  const struct {
    SDL_Scancode key;
    std::vector<int> codes;
  } cases[] = {{SDL_SCANCODE_Z, {'Z'}},
               {SDL_SCANCODE_9, {'9'}},
               {SDL_SCANCODE_0, {'0'}},
               {SDL_SCANCODE_F4, {vk_f4}},
               {SDL_SCANCODE_F13, {124}},
               {SDL_SCANCODE_KP_9, {105}},
               {SDL_SCANCODE_LEFT, {vk_left}},
               {SDL_SCANCODE_COMMA, {188}},
               {SDL_SCANCODE_LSHIFT, {vk_shift, 160}},
               {SDL_SCANCODE_RCTRL, {vk_control, 163}},
               {SDL_SCANCODE_LALT, {vk_alt, 164}},
               {SDL_SCANCODE_MUTE, {}}};
  for (const auto &[key, codes] : cases) {
    pump({key});
    std::vector<int> down;
    for (int code = 0; code < 256; code++)
      if (key_down(code)) down.push_back(code);
    EXPECT_EQ(down, codes) << "scancode " << key;
  }
}

// Releases go to another program then. The mouse of a fullscreen window is free until it returns.
TEST_F(Input, ALostFocusReleasesKeysButtonsAndMouse) {
  const auto mouse = [] {
    return std::tuple(sdl.cursor.x, SDL_ShowCursor(SDL_QUERY), SDL_IsScreenSaverEnabled());
  };
  const std::tuple free(1440, SDL_ENABLE, SDL_TRUE), captured(1450, SDL_DISABLE, SDL_FALSE);
  for (const auto &[full, minimised] : {std::pair{1, 0}, {1, 1}, {0, 0}, {0, 1}}) {
    SCOPED_TRACE(testing::Message() << "fullscreen " << full << ", minimised " << minimised);
    open(full == 0);
    mouse_wait_release = 0;
    pump();
    sdl.cursor.x = 1440;
    sdl.buttons = sdl.own_buttons = SDL_BUTTON_LMASK;
    pump({SDL_SCANCODE_A});
    EXPECT_EQ(std::pair(key_down('A'), mouse_buttons), std::pair(true, mouse_left));
    sdl.state = minimised != 0 ? SDL_WINDOW_MINIMIZED | SDL_WINDOW_INPUT_FOCUS : 0;
    pump();
    pump({SDL_SCANCODE_B});
    EXPECT_EQ(std::pair(key_down('A'), mouse_buttons), std::pair(false, 0u));
    EXPECT_EQ(key_down('B'), minimised == 0);
    EXPECT_EQ(mouse(), free);
    EXPECT_EQ(sdl.minimised, 2 * full * (1 - minimised)) << "requested until it is done";
    sdl.state = SDL_WINDOW_INPUT_FOCUS;
    pump();
    EXPECT_EQ(mouse(), full != 0 ? captured : free);
    EXPECT_EQ(mouse_buttons, 0u) << "the release was missed";
  }
}

TEST_F(Input, AltTabMinimisesUntilItIsDone) {
  const std::tuple<std::vector<int>, uint32_t, int> pumps[] = {
      {{SDL_SCANCODE_LALT}, SDL_WINDOW_INPUT_FOCUS, 0},
      {{SDL_SCANCODE_TAB}, SDL_WINDOW_INPUT_FOCUS, 0},
      {{SDL_SCANCODE_RALT, SDL_SCANCODE_TAB}, SDL_WINDOW_INPUT_FOCUS, 1},
      {{}, SDL_WINDOW_INPUT_FOCUS, 2},
      {{}, SDL_WINDOW_MINIMIZED, 2},
      {{}, SDL_WINDOW_INPUT_FOCUS, 2}};
  for (const auto &[keys, state, requests] : pumps) {
    sdl.state = state;
    pump(keys);
    EXPECT_EQ(sdl.minimised, requests);
  }
}

TEST_F(Input, RecentringGivesTheWayFromTheMiddleAndNeverDrifts) {
  const auto recentre = [] {
    int32_t dx = 0, dy = 0;
    gfx_mouse_recentre(&dx, &dy);
    return std::pair(dx, dy);
  };
  sdl.cursor = {1461, 493};
  EXPECT_EQ(recentre(), std::pair(11, -7));
  EXPECT_EQ(recentre(), std::pair(0, 0));
  sdl.cursor_moves = false; // the mouse's own motion steers then
  sdl.cursor.x = 1461;
  sdl.motion = {50, 60};
  EXPECT_EQ(recentre(), std::pair(0, 0)) << "what came before is dropped";
  sdl.motion = {3, -4};
  EXPECT_EQ(recentre(), std::pair(3, -4));
  platform_show_cursor(true);
  EXPECT_FALSE(sdl.relative);
}

TEST_F(Input, TheWindowIsFollowedAndItsFrameKeptOnTheDesktop) {
  SDL_Window *window = SDL_GL_GetCurrentWindow();
  SDL_SetWindowSize(window, 500, 131);
  SDL_SetWindowPosition(window, 1500, 1000);
  sdl.border = 10;
  pump();
  EXPECT_EQ(std::pair(screen_width, screen_height), std::pair(500, 131));
  int x = 0, y = 0;
  SDL_GetWindowPosition(window, &x, &y);
  EXPECT_EQ(std::pair(x, y), std::pair(1920 - 510, 1080 - 141));
  gfx_swap(0);
  EXPECT_EQ(sdl.swaps, 1);
}

TEST_F(Input, AClosedWindowAsksToQuit) {
  SDL_Event close = new_event(SDL_WINDOWEVENT);
  pump_event(close);
  EXPECT_EQ(quit_requested, 0u);
  close.window.event = SDL_WINDOWEVENT_CLOSE;
  pump_event(close);
  EXPECT_EQ(quit_requested, 1u);
  EXPECT_FALSE(gfx_context_alive());
  EXPECT_EQ(SDL_GL_GetCurrentContext(), nullptr);
}

} // namespace
