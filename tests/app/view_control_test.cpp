#include "app/view_control.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "app/keys.h"
#include "gfx/fake_platform.h"
#include "gfx/input.h"
#include "gfx/window.h"
#include "render/plot.h"
#include "scenarios.h"

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

TEST_F(ViewControlTest, TheRightButtonTurnsFromItsSecondFrame) {
  mouse_buttons = mouse_right;
  view_mouse_steer(&control, 20.0, 30, -12);
  EXPECT_DOUBLE_EQ(control.mx, 30 * 20.0 / 600);
  EXPECT_DOUBLE_EQ(control.my, 12 * 20.0 / 600);
  EXPECT_EQ(control.yaw, 0);
  mouse_buttons_prev = mouse_right;
  view_mouse_steer(&control, 20.0, 3, -1);
  EXPECT_DOUBLE_EQ(control.yaw, 30.0 / 800) << "in fractions, not in whole numbers";
  EXPECT_DOUBLE_EQ(control.pitch, -10.0 / 800);
  EXPECT_EQ(control.mx, 0);
  EXPECT_EQ(control.my, 0);
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
               {{vk_left, 'S'}, 20, {0, 0, -40, -40}}, // one second at most
               {{vk_control, vk_up, vk_right, 'S', 'A'}, 0.1, {0.2, -0.2, 0, 0}},
               {{vk_control, vk_down}, 20, {0, 2, 0, 0}}};
  for (const auto &[keys, dt, after] : cases) {
    control = {};
    hold_keys(keys);
    view_keys(&control, 20.0, dt);
    EXPECT_DOUBLE_EQ(control.mx, after.mx);
    EXPECT_DOUBLE_EQ(control.my, after.my);
    EXPECT_DOUBLE_EQ(control.yaw, after.yaw);
    EXPECT_DOUBLE_EQ(control.pitch, after.pitch);
  }
}

TEST_F(ViewControlTest, SwitchesStepOncePerPressAndGoRound) {
  ::Run run = {};
  run.world.root = scenario_path(1);
  const struct {
    int key;
    int32_t *state, states;
  } switches[] = {
      {'G', &plot_grid, 2},          {'P', &plot_smooth_lines, 2}, {'V', &plot_voronoi, 2},
      {'M', &voronoi_mode, 6},       {'H', &plot_type, 3},         {'L', &plot_light, 2},
      {vk_space, &run.helpstate, 4}, {vk_f3, &run.stereo_mode, 9}, {vk_f4, &run.stereo_swap, 2}};
  for (const auto &[key, state, states] : switches)
    for (int press = 0; press < 2 * states; press++) {
      const int32_t next = (*state + 1) % states;
      for (const std::vector<int> &before :
           {std::vector<int>{}, {key}}) { // pressed, and still held
        hold_keys(before);
        std::copy(std::begin(key_state), std::end(key_state), key_state_prev);
        hold_keys({key});
        keys_switches(&run);
        EXPECT_EQ(*state, next) << key;
      }
    }
  Maze_destroy(run.world.root, 1);
}

} // namespace
