#include "app/keys.h"

#include "gfx/input.h"
#include "render/plot.h"

void keys_switches() {
  if (key_pressed('P')) plot_smooth_lines ^= 1;
  if (key_pressed('G')) plot_grid ^= 1;
}

bool keys_quit() {
  return key_down(vk_escape) || key_down('Q');
}
