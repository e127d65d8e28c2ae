#include "app/view_control.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "gfx/fake_platform.h"
#include "gfx/input.h"
#include "gfx/window.h"

namespace {

void hold_keys(const std::vector<int> &keys) {
  std::fill(std::begin(key_state), std::end(key_state), uint8_t{0});
  for (const int key : keys)
    key_state[key] = 0x80;
}

struct ViewControlTest : testing::Test {
  World world = {};
  ViewControl control = {};

  void SetUp() override {
    fake_start();
    screen_width = 800;
    screen_height = 600;
    windowed = 1;
    world.zoom = 20.0;
    fake.window_rect = {100, 50, 900, 650};
    fake.cursor = {530, 340}; // 30 right of the middle and 10 above it
  }
};

TEST_F(ViewControlTest, ZoomByWheelAndKeys) {
  const struct {
    uint32_t buttons;
    int key;
    double dt, after;
  } cases[] = {{mouse_wheel_forward, 0, 0.25, 5.0 / 6},
               {mouse_wheel_backward, 0, 0.25, 1.2},
               {0, 'X', 0.5, std::exp(1.0)},
               {0, 'Z', 0.1, std::exp(-0.2)},
               {0, 'Z', 20, std::exp(-2.0)}}; // the program was stopped for a while
  for (const auto &[buttons, key, dt, after] : cases) {
    world.zoom = 20.0;
    mouse_buttons = buttons;
    hold_keys({key});
    view_zoom(&world, dt);
    EXPECT_DOUBLE_EQ(world.zoom, 20.0 * after);
  }
}

// A window steers while a button is held, with the cursor hidden; the whole screen always, but not
// while another program has the cursor.
TEST_F(ViewControlTest, SteeringTakesTheWayFromTheMiddle) {
  const struct {
    bool full, active;
    uint32_t was, held;
    bool steers;
    int hidden; // by this frame
  } cases[] = {{false, true, 0, 0, false, 0},
               {false, true, 0, mouse_left, true, 1},
               {false, true, mouse_left, mouse_right, true, 0},
               {false, true, mouse_left, 0, false, -1},
               {true, true, 0, 0, true, 0},
               {true, false, 0, mouse_left, false, 0}};
  for (const auto &[full, active, was, held, steers, hidden] : cases) {
    SetUp();
    windowed = full ? 0 : 1;
    window_active = active ? 1 : 0;
    mouse_buttons_prev = was;
    mouse_buttons = held;
    int32_t dx = 7, dy = 7;
    view_mouse_step(&dx, &dy);
    EXPECT_EQ(std::pair(dx, dy), steers ? std::pair(30, -10) : std::pair(0, 0));
    EXPECT_EQ(fake.cursor.x, steers ? 500 : 530);
    EXPECT_EQ(fake.cursor_hidden, hidden);
  }
}

void expect_control(const ViewControl &control, const ViewControl &expected) {
  EXPECT_DOUBLE_EQ(control.yaw, expected.yaw);
  EXPECT_DOUBLE_EQ(control.pitch, expected.pitch);
  EXPECT_DOUBLE_EQ(control.mx, expected.mx);
  EXPECT_DOUBLE_EQ(control.my, expected.my);
}

TEST_F(ViewControlTest, TheRightButtonTurnsFromItsSecondFrame) {
  mouse_buttons = mouse_right;
  view_mouse_steer(&control, 20.0, 30, -12);
  expect_control(control, {0, 0, 1, 0.4});
  mouse_buttons_prev = mouse_right;
  view_mouse_steer(&control, 20.0, 3, -1); // fractions, not whole numbers
  expect_control(control, {30.0 / 800, -10.0 / 800, 0, 0});
  screen_width = 0; // minimised
  screen_height = 1;
  view_mouse_steer(&control, 20.0, 0, 0);
  EXPECT_TRUE(std::isfinite(control.yaw));
}

TEST_F(ViewControlTest, KeysMoveByTheZoomAndCtrlTurnsInstead) {
  const struct {
    std::vector<int> keys;
    double dt;
    ViewControl after;
  } cases[] = {{{vk_up, 'W', 'D'}, 0.1, {0, 0, 4, 4}}, // two for one direction are no faster
               {{vk_left, 'S'}, 20, {0, 0, -800, -800}},
               {{vk_control, vk_up, vk_right, 'S', 'A'}, 0.1, {0.2, -0.2, 0, 0}},
               {{vk_control, vk_down}, 20, {0, 2, 0, 0}}}; // one second at most
  for (const auto &[keys, dt, after] : cases) {
    control = {};
    hold_keys(keys);
    view_keys(&control, 20.0, dt);
    expect_control(control, after);
  }
}

} // namespace
