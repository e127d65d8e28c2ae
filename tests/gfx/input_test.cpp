#include "gfx/input.h"

#include <utility>

#include <gtest/gtest.h>

#include "gfx/fake_platform.h"
#include "gfx/window.h"

namespace {

uint32_t pump(std::vector<uint8_t> keys) {
  fake.keys_down = keys;
  return gfx_pump();
}

// A button held from before counts after its release; the wheel does not wait, and shows for one
// pump.
TEST(Input, ButtonsAndWheel) {
  fake_start();
  input_mouse_message(mouse_right | 0xFF00, 70, -1);
  EXPECT_TRUE(mouse_buttons == 0 && mouse_event_buttons == mouse_right);
  input_wheel_message(120);
  input_mouse_message(0, 71, 5);
  input_mouse_message(mouse_right, 72, 5);
  EXPECT_EQ(mouse_buttons, mouse_right | mouse_wheel_forward);
  fake.messages = [] {
    input_wheel_message(-120);
    return false;
  };
  pump({});
  EXPECT_EQ(mouse_buttons, mouse_right | mouse_wheel_backward);
  EXPECT_EQ(mouse_buttons_prev, mouse_right | mouse_wheel_forward);
}

TEST(Input, TypedTextIsAQueueOf499Bytes) {
  fake_start();
  for (uint32_t i = 0; i < 600; i++)
    input_char_message(0x100 + 'a' + i % 26);
  EXPECT_EQ(gfx_next_typed_char(), 'a');
  input_char_message(0xE9); // above 127 it must come back as itself
  for (uint32_t i = 1; i < 499; i++)
    EXPECT_EQ(gfx_next_typed_char(), 'a' + i % 26);
  EXPECT_TRUE(gfx_next_typed_char() == 0xE9 && gfx_next_typed_char() == 0);
}

TEST(Input, KeyEdgesLastOnePump) {
  fake_start();
  pump({'M', 255});
  EXPECT_TRUE(key_pressed('M') && key_down('M') && key_pressed(255));
  pump({'M', 'A'});
  EXPECT_TRUE(!key_pressed('M') && key_down('M') && !key_down(255));
  fake.messages = [] { return true; }; // the system's quit, at once and for good
  EXPECT_TRUE(pump({'B'}) == 1 && !key_down('B'));
  fake.messages = nullptr;
  EXPECT_EQ(pump({}), 1u);
}

// By another window or by being minimised. What is released meanwhile must not stay held, and the
// mouse of a fullscreen window is free until it returns.
TEST(Input, ALostFocusReleasesKeysButtonsAndMouse) {
  for (const auto &[full, minimised] : {std::pair{1, 0}, {1, 1}, {0, 0}, {0, 1}}) {
    fake_start();
    windowed = full != 0 ? 0 : 1;
    fake.cursor = {70, 70};
    pump({'A'});
    EXPECT_TRUE(fake.cursor.x == (full != 0 ? 0 : 70) && fake.cursor_hidden == full);
    EXPECT_EQ(fake.screen_saver, full == 0);
    input_mouse_message(0, 5, 5);
    input_mouse_message(mouse_left, 5, 5);
    fake.minimised = minimised != 0;
    fake.focused = minimised != 0;
    fake.cursor = {70, 70};
    for (int i = 0; i < 2; i++)
      pump(std::vector<uint8_t>(static_cast<size_t>(minimised), 'B')); // not looked at
    EXPECT_TRUE(!key_down('A') && !key_down('B') && mouse_buttons == 0 && fake.cursor.x == 70);
    EXPECT_TRUE(fake.cursor_hidden == 0 && fake.on_top_asked == full && fake.screen_saver);
    EXPECT_EQ(fake.minimise_asked, 2 * full * (1 - minimised)); // until it is done
    fake.focused = true;
    fake.minimised = false;
    pump({'B'});
    EXPECT_TRUE(fake.cursor.x == (full != 0 ? 0 : 70) && fake.cursor_hidden == full);
    input_mouse_message(mouse_left, 5, 5); // as systems say that missed the release
    EXPECT_TRUE(key_pressed('B') && mouse_buttons == 0);
  }
}

// Asked for in every pump until it is done; a fullscreen window stays on top but for that time.
TEST(Input, AltTabMinimises) {
  fake_start();
  pump({vk_alt});
  pump({vk_alt, vk_tab}); // still kept on top before the keys are read
  pump({});
  EXPECT_TRUE(fake.minimise_asked == 2 && alt_tabbed == 1 && fake.on_top_asked == 2);
  fake.minimised = true;
  pump({});
  EXPECT_EQ(alt_tabbed, 0);
  fake.minimised = false;
  pump({});
  windowed = 1;
  pump({});
  EXPECT_TRUE(fake.minimise_asked == 2 && fake.on_top_asked == 3);
}

TEST(Input, RecentringGivesTheWayFromTheCentreAndNeverDrifts) {
  fake_start();
  fake.window_rect = {-101, 50, 200, 151}; // centre (49, 100), truncated towards zero
  fake.cursor = {60, 80};
  int32_t dx = 0;
  int32_t dy = 0;
  gfx_mouse_recentre(&dx, nullptr);
  fake.cursor.y += 7;
  gfx_mouse_recentre(nullptr, &dy);
  EXPECT_TRUE(dx == 11 && dy == 7);
  fake.cursor_moves = false;
  fake.relative = {3, -4};
  gfx_mouse_recentre(&dx, &dy);
  EXPECT_TRUE(dx == 3 && dy == -4);
}

} // namespace
