#include "app/keys.h"

#include "app/overlay.h"
#include "gfx/input.h"
#include "gfx/screenshot.h"
#include "gfx/stereo.h"
#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "render/plot_switches.h"
#include "world/new_maze.h"

namespace {

constexpr double depth_step = 0.005; // of "Stereo Depth"

// The mode can be any number, since it is read from the settings.
int32_t next_mode(int32_t mode) {
  const int64_t next = (int64_t{mode} + 1) % stereo_modes;
  return static_cast<int32_t>(next < 0 ? next + stereo_modes : next);
}

// The display lists of the Voronoi plot depend on the mode.
void next_voronoi_mode(Maze *root) {
  voronoi_mode = (voronoi_mode + 1) % voronoi_modes;
  Attachment_drop_tree(root, attachment_cell_list);
}

} // namespace

void keys_switches(Run *run) {
  if (key_pressed(vk_space)) run->helpstate = (run->helpstate + 1) % overlay_pages;
  if (key_pressed(vk_f3)) run->stereo_mode = next_mode(run->stereo_mode);
  if (key_pressed(vk_f4)) run->stereo_swap ^= 1;
  if (key_pressed(vk_f5)) run->stereo_depth -= depth_step;
  if (key_pressed(vk_f6)) run->stereo_depth += depth_step;
  if (key_pressed('H')) plot_type = (plot_type + 1) % plot_types;
  if (key_pressed('V')) plot_voronoi ^= 1;
  if (key_pressed('M')) next_voronoi_mode(run->world.root);
  if (key_pressed('L')) plot_light ^= 1;
  if (key_pressed('P')) plot_smooth_lines ^= 1;
  if (key_pressed('G')) plot_grid ^= 1;
  plot_fixed = key_down('J') ? 1 : 0;
  plot_connected = key_down('F') ? 1 : 0;
}

void keys_screenshot() {
  if (key_down(vk_control) && key_pressed('S')) screenshot_save("Vorel");
}

void keys_new_maze(Run *run) {
  if (!key_pressed('N')) return;
  World_replace_maze(&run->world, (key_down(vk_shift) ? 1 : 0) + (key_down(vk_control) ? 1 : 0),
                     run->roamers);
}

bool keys_quit() {
  return key_down(vk_escape) || key_down('Q');
}
