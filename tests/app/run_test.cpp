// Whole frames of the program, with keys and mouse as SDL reports them.

#include "app/run.h"

#include <cmath>
#include <tuple>

#include "gfx/fake_sdl.h"
#include "gfx/input.h"
#include "gfx/window.h"
#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/lifetime.h"
#include "own_folder.h"
#include "render/plot_switches.h"
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
    write("config.txt",
          framed ? "Windowed: y\nResolution: 801x500\n" : "Windowed: n\nResolution: 801x500\n");
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
    clock_set_source(clock_steady);
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

// The random number that follows a new maze.
int32_t random_after_maze(int32_t mode) {
  World world = {};
  rand_seed(1);
  World_new(&world, mode);
  World_free(&world);
  return rand_int(1 << 30);
}

TEST_F(RunTest, StartsWithARandomMazeAndAFreeMouse) {
  set_up(false);
  sdl.state = 0; // no focus yet
  rand_seed(1);
  ASSERT_TRUE(run_start(&run));
  const int32_t drawn = rand_int(1 << 30);
  EXPECT_NE(drawn, random_after_maze(0));
  EXPECT_EQ(std::pair(sdl.cursor.x, sdl.cursor.y), std::pair(400, 250));
  EXPECT_EQ(run.helpstate, 0);
  EXPECT_STREQ(current_font->name, "normal"); // of the first prompt
  EXPECT_TRUE(fs::exists("font_fmod.dat"));
  EXPECT_NE(contents("config.txt").find("Stereo Depth"), std::string::npos);
}

// From a yaw of 0.3, a pitch of -0.9 and a zoom of 7.3, in a window of 801 by 500 pixels.
TEST_F(RunTest, KeysAndMouseSteer) {
  start(3);
  constexpr int up = SDL_SCANCODE_UP, down = SDL_SCANCODE_DOWN, left = SDL_SCANCODE_LEFT,
                right = SDL_SCANCODE_RIGHT, w = SDL_SCANCODE_W, a = SDL_SCANCODE_A,
                d = SDL_SCANCODE_D, s = SDL_SCANCODE_S, z = SDL_SCANCODE_Z, x = SDL_SCANCODE_X;
  const struct {
    std::vector<int> keys;
    uint32_t button; // held, with the cursor 30 pixels right of the middle and 12 above it
    double seconds;
    double zoom, yaw, pitch, mx, my; // changes; motion in zooms
    int32_t wheel = 0;
  } cases[] = {{{}, 0, 0.1, 5.0 / 6, 0, 0, 0, 0, 3},
               {{x}, 0, 0.5, std::exp(1.0), 0, 0, 0, 0},
               {{z}, 0, 20, std::exp(-2.0), 0, 0, 0, 0}, // one second at most
               {{up, right}, 0, 0.1, 1, 0, 0, 0.2, 0.2},
               {{w, d}, 0, 3, 1, 0, 0, 6, 6},
               {{down, a}, 0, 0.1, 1, 0, 0, -0.2, -0.2},
               {{s, left}, 0, 0.1, 1, 0, 0, -0.2, -0.2},
               {{SDL_SCANCODE_RCTRL, up, right, a}, 0, 20, 1, 2, -2, 0, 0}, // one second at most
               {{SDL_SCANCODE_LCTRL, down, left}, 0, 0.1, 1, -0.2, 0.2, 0, 0},
               {{}, SDL_BUTTON_LMASK, 0.1, 1.2, 0, 0, 1.2 * 30 / 500, 1.2 * 12 / 500, -1},
               {{}, SDL_BUTTON_RMASK, 0.1, 1, 300.0 / 801, -120.0 / 801, 0, 0}};
  for (const auto &c : cases) {
    SCOPED_TRACE(&c - cases);
    sdl.buttons = sdl.own_buttons = c.button;
    for (const double seconds : {0.0, c.seconds}) { // the right button moves in its first frame
      run.world.zoom = 7.3;
      run.control = {0.3, -0.9, 0, 0};
      sdl.cursor = {400 + 30, 250 - 12};
      frame(seconds, seconds == 0 ? std::vector<int>{} : c.keys, c.wheel);
      EXPECT_NEAR(run.control.yaw, seconds == 0 ? 0.3 : 0.3 + c.yaw, 1e-9);
    }
    EXPECT_NEAR(run.world.zoom, 7.3 * c.zoom, 1e-9);
    EXPECT_NEAR(run.control.pitch, -0.9 + c.pitch, 1e-9);
    EXPECT_NEAR(Mat3_row(run.world.view, 2).z, std::cos(-0.9 + c.pitch), 1e-9);
    EXPECT_NEAR(run.control.mx, 7.3 * c.mx, 1e-9);
    EXPECT_NEAR(run.control.my, 7.3 * c.my, 1e-9);
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), c.button != 0 ? SDL_DISABLE : SDL_ENABLE);
  }
}

// The camera follows where the user has moved to.
TEST_F(RunTest, FrameStepsTheWorldAndSwapsBuffers) {
  start(5);
  const Roamer roamer = {0.01, 9, {path, 1}, Pos_null};
  GrowList_append(&run.world.roamers, &roamer);
  EXPECT_TRUE(frame(0.05, {SDL_SCANCODE_D}));
  EXPECT_NEAR(run.world.time, 0.05, 1e-9);
  EXPECT_NE(rows<Roamer>(run.world.roamers)[0].cur.node, 1);
  EXPECT_NEAR(run.world.camera.x, 2 + 2 * 7.3 * 0.05 / 2, 1e-9);
  EXPECT_EQ(sdl.swaps, 1);
  sdl.state = SDL_WINDOW_MINIMIZED;
  frame(0.05);
  EXPECT_EQ(std::pair(sdl.swaps, sdl.waited), std::pair(1, 100)) << "nobody sees it";
  sdl.state = SDL_WINDOW_INPUT_FOCUS;
  EXPECT_FALSE(frame(0.05, {SDL_SCANCODE_Q}));
}

TEST_F(RunTest, RSimplifiesAndERepels) {
  start(2);
  Maze *below = scenario_path(2);
  scenario_hold(path, 0, below);
  for (const auto &[key, distance] :
       {std::pair{SDL_SCANCODE_R, 0.974}, {SDL_SCANCODE_E, 1.190625}}) {
    for (const char *name : attachments_stale_after_move)
      for (Maze *maze : {path, below}) // the frame itself adds the lists
        if (name != attachment_line_lists) Attachment_add(maze, name, 1, nullptr);
    maze_nodes(path)[0].x = 0;
    maze_nodes(path)[1].x = 1;
    frame(0.013, {key});
    EXPECT_NEAR(maze_nodes(path)[1].x - maze_nodes(path)[0].x, distance, 1e-9);
    EXPECT_EQ(path->attachments.count + below->attachments.count, 0u);
    EXPECT_TRUE(run.moved);
  }
}

// Two nodes in one place repel each other to infinity. Every plot must survive that, and N ends it.
TEST_F(RunTest, PositionsThatAreNotFiniteAreDrawn) {
  start(2);
  maze_nodes(path)[1].x = 0;
  frame(0.01, {SDL_SCANCODE_E});
  EXPECT_FALSE(is_finite(node_position(maze_nodes(path)[1])));
  for (const char key : std::string("HHHVMMMMMMFGN")) {
    frame(0.01, {SDL_SCANCODE_A + key - 'A'});
    frame(0.01);
  }
  EXPECT_TRUE(is_finite(run.world.camera));
}

TEST_F(RunTest, SwitchesChangeOncePerPress) {
  start(2);
  const auto switches = [this] {
    return std::tie(run.helpstate, run.stereo_mode, run.stereo_swap, plot_type, plot_voronoi,
                    voronoi_mode, plot_light, plot_smooth_lines, plot_grid);
  };
  switches() = std::tuple(3, -7, 1, 2, 1, 5, 1, 0, 1);
  run.stereo_depth = 0.1;
  for (int i = 0; i < 2; i++)
    frame(0.01, {SDL_SCANCODE_SPACE, SDL_SCANCODE_F3, SDL_SCANCODE_F4, SDL_SCANCODE_H,
                 SDL_SCANCODE_V, SDL_SCANCODE_M, SDL_SCANCODE_L, SDL_SCANCODE_P, SDL_SCANCODE_G,
                 SDL_SCANCODE_F5, SDL_SCANCODE_J});
  EXPECT_EQ(switches(), std::tuple(0, 3, 0, 0, 0, 0, 0, 1, 0));
  EXPECT_NEAR(run.stereo_depth, 0.095, 1e-9);
  EXPECT_EQ(std::pair(plot_fixed, plot_connected), std::pair(1, 0));
  frame(0.01, {SDL_SCANCODE_F6, SDL_SCANCODE_F});
  EXPECT_NEAR(run.stereo_depth, 0.1, 1e-9);
  EXPECT_EQ(std::pair(plot_fixed, plot_connected), std::pair(0, 1));
}

TEST_F(RunTest, ShiftAndCtrlSelectTheModeOfANewMaze) {
  start(2);
  constexpr int n = SDL_SCANCODE_N, shift = SDL_SCANCODE_LSHIFT, ctrl = SDL_SCANCODE_RCTRL;
  const std::pair<std::vector<int>, int32_t> cases[] = {
      {{n, shift, ctrl}, 2}, {{n, ctrl}, 1}, {{n, shift}, 1}, {{n}, 0}};
  for (const auto &[keys, mode] : cases) {
    const Roamer roamer = {9, 9, run.world.cur, Pos_null};
    GrowList_append(&run.world.roamers, &roamer);
    rand_seed(1);
    frame(0.01, keys);
    const int32_t drawn = rand_int(1 << 30);
    EXPECT_EQ(drawn, random_after_maze(mode));
    EXPECT_EQ(std::pair(run.world.time, run.world.roamers.count), std::pair(0.0, 0u));
    frame(0.01);
  }
  run.roamers = 5;
  frame(0.01, {n});
  EXPECT_EQ(run.world.roamers.count, 5u);
}

} // namespace
