#include "generate/patchwork.h"

#include "generate/paint.h"
#include "generate/topology.h"
#include "generate/transform.h"
#include "maze/edit.h"
#include "maze/reach.h"
#include "support/random.h"

namespace {

constexpr double tile_size = 22.5;
constexpr int32_t tile_pitch = 15; // less than a tile's width: neighbours overlap
constexpr int32_t side = 5 * tile_pitch;
constexpr double turn_range = 100.0;        // radians
constexpr double all_colours = 0x1000000p0; // one more than the greatest

Maze *random_tile(int32_t x, int32_t y) {
  Maze *tile = Maze_random_topology(tile_size);
  Maze_paint(tile, static_cast<uint32_t>(rand_real(all_colours)), 0);
  Maze_centre(tile);
  if (rand_int(5) == 0) {
    const double turn_z = rand_real(turn_range);
    const double turn_y = rand_real(turn_range);
    const double turn_x = rand_real(turn_range);
    Maze_rotate(tile, {turn_x, turn_y, turn_z}, 0);
  }
  Maze_translate(tile, {static_cast<double>(x), static_cast<double>(y), 0.0}, 0);
  return tile;
}

} // namespace

Maze *Maze_patchwork() {
  Maze *patches = Maze_new();
  for (int32_t x = 0; x < side; x += tile_pitch)
    for (int32_t y = 0; y < side; y += tile_pitch) {
      Maze *tile = random_tile(x, y);
      Maze_weld_onto(patches, tile);
      Maze_destroy(tile, 1);
    }
  Maze *connected = Maze_reachable_copy(patches, 0);
  Maze_destroy(patches, 1);
  return connected;
}
