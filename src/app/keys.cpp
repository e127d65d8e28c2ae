#include "app/keys.h"

#include "app/overlay.h"
#include "gfx/input.h"
#include "render/plot.h"

void keys_switches(Run *run) {
  if (key_pressed(' ')) run->helpstate = (run->helpstate + 1) % overlay_states;
  if (key_pressed('H')) plot_type = (plot_type + 1) % plot_types;
  if (key_pressed('L')) plot_light ^= 1;
  if (key_pressed('P')) plot_smooth_lines ^= 1;
  if (key_pressed('G')) plot_grid ^= 1;
}

void keys_new_maze(World *world) {
  if (!key_pressed('N')) return;
  Maze_destroy(world->root, 1);
  World_new_maze(world, (key_down(vk_shift) ? 1 : 0) + (key_down(vk_control) ? 1 : 0));
  world->time = 0.0;
  GrowList_clear(&world->roamers); // their places were in the old tree
}

bool keys_quit() {
  return key_down(vk_escape) || key_down('Q');
}
