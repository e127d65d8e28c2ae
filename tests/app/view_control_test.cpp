#include "app/view_control.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "app/keys.h"
#include "gfx/fake_platform.h"
#include "gfx/input.h"
#include "gfx/window.h"
#include "maze/attachment.h"
#include "render/plot.h"

namespace {

void hold_keys(std::initializer_list<int> keys) {
  std::fill(std::begin(key_state), std::end(key_state), uint8_t{0});
  for (const int key : keys)
    key_state[key] = 0x80;
}

struct ViewControlTest : testing::Test {
  World world = {};
  ViewControl control = {};

  void SetUp() override {
    fake_start();
    hold_keys({});
    std::fill(std::begin(key_state_prev), std::end(key_state_prev), uint8_t{0});
    plot_grid = 0;
    plot_smooth_lines = 1;
    screen_width = 800;
    screen_height = 600;
    windowed = 1;
    world.zoom = 20.0;
    fake.window_rect = {100, 50, 900, 650};
    fake.cursor = {530, 340}; // 30 right of the middle and 10 above it
  }
};

TEST_F(ViewControlTest, ZoomByWheelAndKeys) {
  mouse_buttons = mouse_wheel_forward;
  view_zoom(&world, 0.25);
  EXPECT_DOUBLE_EQ(world.zoom, 20.0 * 5.0 / 6.0);
  mouse_buttons = mouse_wheel_backward;
  view_zoom(&world, 0.25);
  EXPECT_DOUBLE_EQ(world.zoom, 20.0);
  mouse_buttons = 0;
  hold_keys({'X'});
  for (int frame = 0; frame < 5; frame++)
    view_zoom(&world, 0.1);
  EXPECT_NEAR(world.zoom, 20.0 * std::exp(1.0), 1e-9) << "e per half second, whatever the frames";
  hold_keys({'Z'});
  view_zoom(&world, 0.5);
  EXPECT_NEAR(world.zoom, 20.0, 1e-9);
}

TEST_F(ViewControlTest, AWindowSteersOnlyWhileAButtonIsHeld) {
  int32_t dx = 7;
  int32_t dy = 7;
  view_mouse_step(&dx, &dy);
  EXPECT_EQ(dx, 0);
  EXPECT_EQ(fake.cursor.x, 530) << "the cursor is the user's";
  mouse_buttons = mouse_left;
  view_mouse_step(&dx, &dy);
  EXPECT_EQ(dx, 30) << "the first frame takes the way to the middle as it is";
  EXPECT_EQ(dy, -10);
  EXPECT_EQ(fake.cursor_hidden, 1);
  mouse_buttons_prev = mouse_left;
  view_mouse_step(&dx, &dy);
  EXPECT_EQ(dx, 0) << "the cursor was put back in the middle";
  EXPECT_EQ(fake.cursor_hidden, 1) << "hidden once";
  mouse_buttons = 0;
  view_mouse_step(&dx, &dy);
  EXPECT_EQ(fake.cursor_hidden, 0);
}

TEST_F(ViewControlTest, FullscreenAlwaysSteersButNotWhileMinimised) {
  windowed = 0;
  int32_t dx = 0;
  int32_t dy = 0;
  view_mouse_step(&dx, &dy);
  EXPECT_EQ(dx, 30);
  EXPECT_EQ(fake.cursor_hidden, 0) << "hidden since the start, not counted again";
  fake.cursor = {0, 0};
  fake.minimised = true;
  view_mouse_step(&dx, &dy);
  EXPECT_EQ(dx, 0);
  EXPECT_EQ(fake.cursor.x, 0);
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
  hold_keys({vk_up, 'W', 'D'});
  view_keys(&control, 20.0, 0.1);
  EXPECT_DOUBLE_EQ(control.my, 4.0) << "two keys for one direction are no faster";
  EXPECT_DOUBLE_EQ(control.mx, 4.0);
  control = {};
  hold_keys({vk_left, 'S'});
  view_keys(&control, 20.0, 0.1);
  EXPECT_DOUBLE_EQ(control.my, -4.0);
  EXPECT_DOUBLE_EQ(control.mx, -4.0);
  control = {};
  hold_keys({vk_control, vk_up, vk_right, 'S', 'A'});
  view_keys(&control, 20.0, 0.1);
  EXPECT_DOUBLE_EQ(control.pitch, -0.2);
  EXPECT_DOUBLE_EQ(control.yaw, 0.2);
  EXPECT_EQ(control.mx, 0);
  EXPECT_EQ(control.my, 0) << "Ctrl turns W, A, S and D off";
}

TEST_F(ViewControlTest, SwitchesActOncePerPress) {
  ::Run run = {};
  run.world.root = Maze_new();
  run.stereo_mode = 7;
  run.stereo_depth = 0.05;
  const auto states = [&run] {
    return std::vector<int32_t>{plot_grid,     plot_smooth_lines, plot_voronoi,
                                voronoi_mode,  plot_type,         plot_light,
                                run.helpstate, run.stereo_mode,   run.stereo_swap};
  };
  const auto press = [&](std::initializer_list<int> keys) {
    std::fill(std::begin(key_state_prev), std::end(key_state_prev), uint8_t{0});
    hold_keys(keys);
    keys_switches(&run);
  };
  const std::initializer_list<int> all = {'G', 'P', 'V', 'M', 'H', 'L', vk_space, vk_f3, vk_f4};
  EXPECT_EQ(states(), (std::vector<int32_t>{0, 1, 0, 5, 0, 0, 0, 7, 0})) << "as they start";
  Maze *below = Maze_new();
  MazeNode holder = {};
  MazeNode_init(&holder, 0, 0, 0);
  holder.submaze = below;
  GrowList_append(&run.world.root->nodes, &holder);
  Attachment_add(below, "voronoilist", 1, nullptr);
  Attachment_add(run.world.root, "voronoilist", 1, nullptr);
  Attachment_add(run.world.root, "lists", 1, nullptr);
  press(all);
  EXPECT_EQ(states(), (std::vector<int32_t>{1, 0, 1, 0, 1, 1, 1, 8, 1}));
  for (const Maze *maze : {run.world.root, below})
    EXPECT_EQ(Attachment_find(maze, "voronoilist"), 0) << "its shapes are another mode's";
  EXPECT_EQ(Attachment_find(run.world.root, "lists"), 1);
  std::copy(std::begin(key_state), std::end(key_state), key_state_prev);
  keys_switches(&run);
  EXPECT_EQ(states(), (std::vector<int32_t>{1, 0, 1, 0, 1, 1, 1, 8, 1})) << "still held";
  press(all);
  EXPECT_EQ(states(), (std::vector<int32_t>{0, 1, 0, 1, 2, 0, 2, 0, 0}));
  press({'H', vk_space, vk_f6});
  press({vk_space, vk_f5});
  press({vk_f5});
  EXPECT_EQ(states(), (std::vector<int32_t>{0, 1, 0, 1, 0, 0, 0, 0, 0}));
  EXPECT_NEAR(run.stereo_depth, 0.045, 1e-12);
  voronoi_mode = 5;
  for (const int key : {'J', 'F', '0'}) { // these two act while they are held
    hold_keys({key});
    std::copy(std::begin(key_state), std::end(key_state), key_state_prev);
    keys_switches(&run);
    EXPECT_TRUE(plot_fixed == (key == 'J') && plot_connected == (key == 'F'));
  }
  Maze_destroy(run.world.root, 1);
  EXPECT_FALSE(keys_quit());
  hold_keys({vk_escape});
  EXPECT_TRUE(keys_quit());
}

} // namespace
