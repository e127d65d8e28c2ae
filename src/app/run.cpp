#include "app/run.h"

#include <cstdlib>

#include "app/fonts.h"
#include "app/keys.h"
#include "app/overlay.h"
#include "app/session_file.h"
#include "app/settings_file.h"
#include "gfx/input.h"
#include "gfx/platform.h"
#include "gfx/texture.h"
#include "gfx/window.h"
#include "render/gl/shaderprocs.h"
#include "render/gl/view.h"
#include "render/scene.h"
#include "support/clock.h"
#include "support/file.h"
#include "support/memory.h"
#include "support/random.h"
#include "support/report.h"
#include "world/camera.h"
#include "world/move.h"
#include "world/roamer.h"

namespace {

constexpr const char *window_title = "Vorel [Kestrin 2018-20]";
constexpr int32_t minimised_wait = 100; // milliseconds: the longest frame of a minimised window

// Advances the session clock; returns the frame time in seconds.
double advance_time(Run *run) {
  const double dt = gfx_clock() - run->last_clock;
  run->last_clock += dt;
  run->world.time += dt;
  return dt;
}

// Converts mouse, wheel and keys to this frame's zoom, rotation and motion.
void apply_input(Run *run, double dt) {
  World *world = &run->world;
  int32_t dx = 0;
  int32_t dy = 0;
  view_zoom(world, dt);
  view_mouse_step(&dx, &dy);
  view_mouse_steer(&run->control, world->zoom, dx, dy);
  view_keys(&run->control, world->zoom, dt);
}

void draw_frame(Run *run, Vec3 followed, double dt) {
  scene_draw(&run->world, followed, run->stereo_mode, run->stereo_swap, run->stereo_depth);
  overlay_draw(&run->world, run->helpstate, dt);
}

// The run whose session must be saved at an exit; null if there is none. Functions for std::atexit
// take no parameters.
Run *unsaved;

void save_unsaved() {
  Run *run = unsaved;
  unsaved = nullptr;
  if (run != nullptr) session_save_for_recovery(run);
}

// A fatal report and the window system's library, when it loses its server, call std::exit.
void save_at_exit() {
  memory_forbid_exit();
  save_unsaved();
}

void report_empty_resolution(bool spans) {
  report_sentence(
      "the resolution in \"config.txt\" %s, so there is no window: set it to \"auto\" or "
      "to a size such as \"800x600\"",
      spans ? "selects no connected monitor" : "has no width or no height");
}

} // namespace

bool run_start(Run *run) {
  textures_keep_component_count = 1;
  settings_start(run);
  rand_seed(clock_ticks());
  projection_is_2d = 0;
  const bool spans = screen_width == -1;
  if (gfx_open(screen_width, screen_height, window_title) == 0) {
    report_empty_resolution(spans);
    Settings_free(&run->settings);
    return false;
  }
  shader_procs_load(); // now, so that a lack of shaders is reported at once
  fonts_start();
  session_start(run);
  World_set_roamers(&run->world, run->roamers);
  unsaved = run;
  memory_set_save(save_unsaved);
  std::atexit(save_at_exit);
  run->control = {};
  run->relaxation = {1.0};
  run->helpstate = 0;
  if (windowed == 0) gfx_mouse_recentre(nullptr, nullptr);
  run->last_clock = gfx_clock();
  if (screen_width == 0) {
    report_sentence("the window has no width: check the resolution in \"config.txt\"");
    report_fatal("Vorel", 92,
                 "GRAPHICS() macro not called at LOOP start, or no resolution specified");
  }
  gfx_pump();
  return true;
}

bool run_frame(Run *run) {
  World *world = &run->world;
  const bool visible = !platform_is_minimised();
  const double dt = advance_time(run);
  apply_input(run, dt);
  World_turn_view(world, run->control.yaw, &run->control.pitch);
  World_step_roamers(world, dt);
  World_move(world, run->control.mx, run->control.my);
  const Vec3 followed = World_follow_point(world);
  World_chase(world, followed, dt);
  if (visible) World_apply_view(world);
  keys_switches(run);
  if (visible) draw_frame(run, followed, dt);
  keys_new_maze(run);
  run->moved = relax_frame(&run->relaxation, world->cur.maze, dt, key_down('R'), key_down('E'));
  keys_screenshot();
  if (visible)
    gfx_swap(0);
  else
    platform_wait(minimised_wait);
  return gfx_pump() == 0 && !keys_quit();
}

bool run_end(Run *run) {
  Recovery_abandon(&run->recovery);
  const SessionPlace place = session_save(run);
  unsaved = nullptr;
  Recovery_end(&run->recovery, place >= SessionPlace::data_folder);
  if (place == SessionPlace::data_folder) session_save_again(run);
  World_free(&run->world);
  settings_end(run);
  gfx_close();
  return place != SessionPlace::nowhere;
}

int run_program() {
  file_open_standard_streams();
  memory_begin();
  platform_begin();
  Run run;
  if (!run_start(&run)) return 1;
  // A close request destroys the context at once, even in run_start.
  while (gfx_context_alive() && run_frame(&run))
    Recovery_frame(&run.recovery, &run.world, run.moved, platform_is_minimised());
  return run_end(&run) ? 0 : 1;
}
