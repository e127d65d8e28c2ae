#include "gfx/input.h"

#include <string>

#include <gtest/gtest.h>

#include "gfx/fake_platform.h"
#include "gfx/window.h"

namespace {

class Input : public testing::Test {
protected:
  void SetUp() override { fake_start(); }
};

// One pump in which the system sends what `messages` does, with these keys held.
uint32_t pump(
    std::vector<uint8_t> keys, const std::function<void()> &messages = [] {}) {
  fake.keys_down = keys;
  fake.messages = [messages] {
    messages();
    return false;
  };
  return gfx_pump();
}

TEST_F(Input, WheelShowsForOnePump) {
  pump({}, [] {
    input_mouse_message(0, 1, 1);
    input_wheel_message(120);
    input_wheel_message(-120);
    input_wheel_message(-120);
    input_mouse_message(mouse_left | mouse_middle, 1, 1); // keeps the wheel bits
  });
  uint32_t both = mouse_wheel_forward | mouse_wheel_backward;
  EXPECT_EQ(mouse_buttons, mouse_left | mouse_middle | both);
  pump({}, [] { input_wheel_message(0); });
  EXPECT_EQ(mouse_buttons, mouse_left | mouse_middle | mouse_wheel_backward);
  EXPECT_EQ(mouse_buttons_prev, mouse_left | mouse_middle | both);
  pump({});
  EXPECT_EQ(mouse_buttons, mouse_left | mouse_middle);
}

TEST_F(Input, ButtonHeldFromBeforeCountsAfterItsRelease) {
  input_mouse_message(mouse_right | 0xFF00, 70, -1);
  EXPECT_EQ(mouse_buttons, 0u);
  EXPECT_EQ(mouse_event_buttons, mouse_right); // other bits of the message are none of ours
  EXPECT_TRUE(mouse_x == 70 && mouse_y == 65535);
  input_wheel_message(1);
  EXPECT_EQ(mouse_buttons, mouse_wheel_forward); // the wheel does not wait
  input_mouse_message(0, 71, 5);
  input_mouse_message(mouse_right, 72, 5);
  EXPECT_EQ(mouse_buttons, mouse_right | mouse_wheel_forward);
}

TEST_F(Input, TypedTextIsAQueueOf499Bytes) {
  EXPECT_EQ(gfx_next_typed_char(), 0u);
  for (uint32_t i = 0; i < 600; i++)
    input_char_message(0x100 + 'a' + i % 26);
  EXPECT_EQ(std::string(typed_text).size(), 499u);
  EXPECT_EQ(gfx_next_typed_char(), 'a');
  input_char_message(0xE9); // above 127 it must come back as itself
  for (uint32_t i = 1; i < 499; i++)
    EXPECT_EQ(gfx_next_typed_char(), 'a' + i % 26);
  EXPECT_EQ(gfx_next_typed_char(), 0xE9u);
  EXPECT_EQ(gfx_next_typed_char(), 0u);
}

TEST_F(Input, KeyEdgesLastOnePumpAndFreezeWhileMinimised) {
  pump({'M', 255});
  EXPECT_TRUE(key_pressed('M') && key_down('M') && key_pressed(255));
  pump({'M'});
  EXPECT_TRUE(!key_pressed('M') && key_down('M') && !key_down(255));
  pump({'A'});
  EXPECT_TRUE(key_pressed('A') && !key_down('M') && key_state_prev['M'] == 0x80);
  fake.minimised = true;
  pump({'B'});
  EXPECT_TRUE(key_pressed('A') && !key_down('B'));
  fake.minimised = false;
  pump({'B'});
  EXPECT_TRUE(key_pressed('B') && !key_down('A'));
}

// Asked for in every pump until it is done; a fullscreen window stays on top but for that time.
TEST_F(Input, AltTabMinimises) {
  for (uint8_t frame : {uint8_t{0}, uint8_t{1}}) {
    fake_start();
    windowed = frame;
    pump({vk_alt});
    EXPECT_EQ(fake.minimise_asked, 0);
    pump({vk_alt, vk_tab}); // still kept on top before the keys are read
    pump({});
    EXPECT_TRUE(fake.minimise_asked == 2 && alt_tabbed == 1);
    EXPECT_EQ(fake.on_top_asked, frame != 0 ? 0 : 2);
    fake.minimised = true;
    pump({});
    EXPECT_EQ(alt_tabbed, 0);
    fake.minimised = false;
    pump({});
    EXPECT_EQ(fake.minimise_asked, 2);
    EXPECT_EQ(fake.on_top_asked, frame != 0 ? 0 : 3);
  }
}

TEST_F(Input, SystemsQuitEndsThePumpAtOnceAndForGood) {
  fake.keys_down = {'A'};
  fake.messages = [] { return true; };
  EXPECT_EQ(gfx_pump(), 1u);
  EXPECT_FALSE(key_down('A'));
  EXPECT_EQ(pump({}), 1u);
}

TEST_F(Input, RecentringGivesTheWayFromTheCentreAndNeverDrifts) {
  fake.window_rect = {-101, 50, 200, 151}; // centre (49, 100), truncated towards zero
  fake.cursor = {60, 80};
  int32_t dx = 0;
  int32_t dy = 0;
  gfx_mouse_recentre(&dx, &dy);
  EXPECT_TRUE(dx == 11 && dy == -20);
  fake.cursor.y += 7;
  gfx_mouse_recentre(nullptr, &dy);
  gfx_mouse_recentre(&dx, nullptr);
  EXPECT_TRUE(dx == 0 && dy == 7);
  fake.cursor = {60, 80};
  fake.cursor_moves = false;
  fake.relative = {3, -4};
  gfx_mouse_recentre(&dx, &dy);
  EXPECT_TRUE(dx == 3 && dy == -4);
}

} // namespace
