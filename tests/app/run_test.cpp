// Whole frames of the program, with keys and mouse as SDL reports them.

#include "app/run.h"

#include <cmath>
#include <csignal>
#include <tuple>
#include <utility>
#include <vector>

#include "app/keys.h"
#include "app/session_names.h"
#include "gfx/fake_sdl.h"
#include "gfx/gl_util.h"
#include "gfx/input.h"
#include "gfx/platform.h"
#include "gfx/window.h"
#include "own_folder.h"
#include "render/plot.h"
#include "scenarios.h"
#include "support/clock.h"
#include "support/random.h"
#include "text/font.h"

namespace {

double now = 500.0;

struct RunTest : OwnFolder {
  ::Run run;
  Maze *path = nullptr; // the root, nodes at (i, 0, 0)

  static void set_up(bool framed) {
    fake_start();
    gfx_clock = [] { return now; };
    std::ofstream("config.txt") << "Windowed (Y/N): " << (framed ? "y" : "n")
                                << "\nResolution: 801x500\n";
  }
  void start(int32_t nodes) {
    set_up(true);
    ASSERT_TRUE(run_start(&run));
    mouse_wait_release = 0;
    Maze_destroy(run.world.root, 1);
    run.world.root = path = scenario_path(nodes);
    run.world.cur = {path, nodes / 2};
    run.world.zoom = 7.3;
    run.world.camera = {nodes / 2 + 0.0, 0, 7.3};
  }
  void TearDown() override {
    if (gfx_context_alive()) run_end(&run);
    clock_reset();
  }
  bool frame(double seconds, const std::vector<int> &keys = {}, int32_t wheel = 0) {
    fake_keys(keys);
    SDL_Event event = {};
    event.type = SDL_MOUSEWHEEL;
    event.wheel.y = wheel;
    SDL_PushEvent(&event);
    gfx_pump();
    now += seconds;
    return run_frame(&run);
  }
};

TEST_F(RunTest, StartsWithARandomMazeAndAFreeMouse) {
  set_up(false);
  sdl.state = 0; // no focus yet
  rand_seed(1);
  testing::internal::CaptureStderr();
  ASSERT_TRUE(run_start(&run));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  const int32_t drawn = rand_int(1 << 30);
  EXPECT_EQ(files(), "config.txt font_fmod.dat ");
  EXPECT_STREQ(current_font->name, "normal");
  EXPECT_EQ(run.world.showtrail, 1);
  EXPECT_NEAR(gfx_fov_43(), 90, 0.01);
  EXPECT_EQ(std::pair(sdl.cursor.x, sdl.cursor.y), std::pair(400, 250))
      << "its way counts from here";
  World same = {};
  rand_seed(1);
  World_new(&same, 0);
  EXPECT_NE(rand_int(1 << 30), drawn);
  World_free(&same);
}

// From a yaw of 0.3, a pitch of -0.9 and a zoom of 7.3, in a window of 801 by 500 pixels.
TEST_F(RunTest, KeysAndMouseSteer) {
  start(3);
  constexpr int up = SDL_SCANCODE_UP, down = SDL_SCANCODE_DOWN, left = SDL_SCANCODE_LEFT,
                right = SDL_SCANCODE_RIGHT, w = SDL_SCANCODE_W, a = SDL_SCANCODE_A,
                d = SDL_SCANCODE_D, s = SDL_SCANCODE_S, z = SDL_SCANCODE_Z, x = SDL_SCANCODE_X,
                ctrl = SDL_SCANCODE_RCTRL;
  const struct {
    std::vector<int> keys;
    uint32_t button; // held, with the cursor 30 pixels right of the middle and 12 above it
    double seconds;
    double zoom, yaw, pitch, mx, my; // changes; motion in zooms
    int32_t wheel = 0;
  } cases[] = {{{}, 0, 0.1, 5.0 / 6, 0, 0, 0, 0, 3},
               {{}, 0, 0.1, 1.2, 0, 0, 0, 0, -1},
               {{x}, 0, 0.5, std::exp(1.0), 0, 0, 0, 0},
               {{z}, 0, 20, std::exp(-2.0), 0, 0, 0, 0}, // one second at most
               {{up, w, d}, 0, 0.1, 1, 0, 0, 0.2, 0.2},  // two keys for one way count once
               {{left, s}, 0, 3, 1, 0, 0, -6, -6},
               {{down, right}, 0, 0.1, 1, 0, 0, 0.2, -0.2},
               {{a, d, s}, 0, 0.1, 1, 0, 0, 0, -0.2},
               {{ctrl, up, right, a}, 0, 0.1, 1, 0.2, -0.2, 0, 0},
               {{ctrl, down, left}, 0, 0.1, 1, -0.2, 0.2, 0, 0},
               {{ctrl, right}, 0, 20, 1, 2, 0, 0, 0}, // one second at most
               {{}, SDL_BUTTON_LMASK, 0.1, 1, 0, 0, 30.0 / 500, 12.0 / 500},
               {{}, SDL_BUTTON_RMASK, 0.1, 1, 300.0 / 801, -120.0 / 801, 0, 0},
               {{}, SDL_BUTTON_MMASK, 0.1, 1, 0, 0, 0, 0}};
  const MonitorRect window = platform_window_rect();
  for (const auto &c : cases) {
    SCOPED_TRACE(&c - cases);
    sdl.buttons = sdl.own_buttons = c.button;
    for (const double seconds : {0.0, c.seconds}) { // the right button moves in its first frame
      run.world.zoom = 7.3;
      run.control = {0.3, -0.9, 0, 0};
      sdl.cursor = {(window.left + window.right) / 2 + 30, (window.top + window.bottom) / 2 - 12};
      frame(seconds, seconds == 0 ? std::vector<int>{} : c.keys, c.wheel);
      EXPECT_NEAR(run.control.yaw, seconds == 0 ? 0.3 : 0.3 + c.yaw, 1e-9);
    }
    EXPECT_NEAR(run.world.zoom, 7.3 * c.zoom, 1e-9);
    EXPECT_NEAR(run.control.pitch, -0.9 + c.pitch, 1e-9);
    EXPECT_NEAR(Mat3_row(run.world.view, 2).z, std::cos(-0.9 + c.pitch), 1e-9);
    EXPECT_NEAR(run.control.mx, 7.3 * c.mx, 1e-9);
    EXPECT_NEAR(run.control.my, 7.3 * c.my, 1e-9);
    const bool steers = (c.button & (SDL_BUTTON_LMASK | SDL_BUTTON_RMASK)) != 0;
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), steers ? SDL_DISABLE : SDL_ENABLE);
  }
}

// The camera follows where the user has moved to. The last Roamer draws first.
TEST_F(RunTest, AFrameMovesClockRoamersUserAndCamera) {
  start(5);
  for (const int32_t node : {1, 3}) {
    const Roamer roamer = {0.01, 9, {path, node}, Pos_null};
    GrowList_append(&run.world.roamers, &roamer);
  }
  rand_seed(4);
  EXPECT_TRUE(frame(0.05, {SDL_SCANCODE_D}));
  EXPECT_NEAR(run.world.time, 0.05, 1e-9);
  const Roamer *roamers = rows<Roamer>(run.world.roamers);
  EXPECT_EQ(std::pair(roamers[0].cur.node, roamers[1].cur.node), std::pair(0, 4));
  EXPECT_EQ(maze_nodes(path)[4].edge[0].roamertime, run.world.time);
  EXPECT_NEAR(run.world.camera.x, 2 + 2 * 7.3 * 0.05 / 2, 1e-9);
  EXPECT_NEAR(run.world.camera.z, 7.3, 1e-9);
  EXPECT_FALSE(frame(0.5, {SDL_SCANCODE_Q}));
  EXPECT_NEAR(run.world.time, 0.55, 1e-9);
}

TEST_F(RunTest, RSimplifiesAndERepels) {
  start(2);
  const std::tuple<int, double, double> cases[] = {{SDL_SCANCODE_R, 0.02, 0.96},
                                                   {SDL_SCANCODE_E, 0.02, 1.190625},
                                                   {SDL_SCANCODE_E, 0.3, 1.190625}};
  for (const auto &[key, seconds, distance] : cases) {
    maze_nodes(path)[0].x = 0;
    maze_nodes(path)[1].x = 1;
    frame(seconds, {key});
    EXPECT_NEAR(maze_nodes(path)[1].x - maze_nodes(path)[0].x, distance, 1e-9);
    EXPECT_TRUE(run.moved);
  }
  maze_nodes(path)[0].x = maze_nodes(path)[1].x; // they are flung to no place at all
  frame(0.02, {SDL_SCANCODE_E});
  frame(0.02);
  EXPECT_FALSE(run.moved);
  EXPECT_FALSE(is_finite(run.world.camera));
  frame(0.02, {SDL_SCANCODE_N});
  path = nullptr; // a new maze brings back everything
  frame(0.02);
  EXPECT_TRUE(is_finite(run.world.camera));
}

TEST_F(RunTest, SwitchesAreTurnedByOnePress) {
  start(2);
  const struct {
    int key;
    int32_t *value;
    int32_t from, to;
  } cases[] = {
      {SDL_SCANCODE_SPACE, &run.helpstate, 3, 0}, {SDL_SCANCODE_F3, &run.stereo_mode, 8, 0},
      {SDL_SCANCODE_F3, &run.stereo_mode, -7, 3}, {SDL_SCANCODE_F3, &run.stereo_mode, INT32_MAX, 2},
      {SDL_SCANCODE_F4, &run.stereo_swap, 1, 0},  {SDL_SCANCODE_H, &plot_type, 2, 0},
      {SDL_SCANCODE_V, &plot_voronoi, 1, 0},      {SDL_SCANCODE_M, &voronoi_mode, 5, 0},
      {SDL_SCANCODE_L, &plot_light, 0, 1},        {SDL_SCANCODE_P, &plot_smooth_lines, 1, 0},
      {SDL_SCANCODE_G, &plot_grid, 0, 1}};
  for (const auto &[key, value, from, to] : cases) {
    *value = from;
    for (const std::vector<int> &keys : {std::vector{key}, {key}, {}}) {
      fake_keys(keys);
      gfx_pump();
      keys_switches(&run);
      EXPECT_EQ(*value, to) << "scancode " << key;
    }
  }
}

TEST_F(RunTest, NMakesAMazeOfTheModeThatShiftAndCtrlAddUpTo) {
  start(2);
  rand_seed(1);
  constexpr int n = SDL_SCANCODE_N, shift = SDL_SCANCODE_RSHIFT, ctrl = SDL_SCANCODE_RCTRL;
  const std::tuple<std::vector<int>, bool, bool> cases[] = {{{n, shift, ctrl}, true, true},
                                                            {{n, ctrl}, true, false},
                                                            {{n, shift}, true, false},
                                                            {{n}, false, false}};
  for (const auto &[keys, named, ladder] : cases) {
    const Roamer roamer = {9, 9, run.world.cur, Pos_null};
    GrowList_append(&run.world.roamers, &roamer);
    frame(0.01, keys);
    EXPECT_EQ(run.world.time, 0);
    EXPECT_EQ(run.world.roamers.count, 0u);
    const Maze *root = run.world.root; // the line of a ladder has twelve nodes
    EXPECT_EQ(std::pair(root->name != nullptr, root->name != nullptr && maze_count(root) == 12),
              std::pair(named, ladder));
    const uint64_t serial = root->serial;
    frame(0.01, keys);
    EXPECT_EQ(run.world.root->serial, serial) << "still held";
    frame(0.01);
  }
}

TEST_F(RunTest, TheProgramSavesAndEnds) {
  set_up(true);
  fake_keys({SDL_SCANCODE_Z});
  static int readings;
  static bool recovery_file;
  gfx_clock = [] {
    recovery_file |= fs::exists(recovery_path);
    if (++readings == 60) std::raise(SIGHUP);
    return now += readings % 20 == 0 ? recovery_period : 0; // a frame has time for a whole file
  };
  EXPECT_EQ(run_program(), 0);
  EXPECT_LT(readings, 90);
  EXPECT_TRUE(recovery_file);
  EXPECT_FALSE(gfx_context_alive());
  EXPECT_EQ(files(), "config.txt font_fmod.dat maze_save.dat ");
}

} // namespace
