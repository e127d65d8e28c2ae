#include "generate/choose.h"

#include <cmath>

#include "generate/carve.h"
#include "generate/flat.h"
#include "generate/paint.h"
#include "generate/transform.h"
#include "support/colour.h"
#include "support/random.h"

namespace {

constexpr double plane_side = 50.0;   // of a square plane, in nodes
constexpr double final_spacing = 2.5; // world units between neighbours
constexpr double flat_channel_low = 0.25;
constexpr double flat_channel_range = 0.5;

// A plane of about 2500 nodes; the ratio of its sides runs from 1 / e squared to e squared.
Maze *random_plane() {
  const double stretch = std::exp(rand_real(2.0) - 1.0);
  const float w = static_cast<float>(plane_side * stretch);
  const float h = static_cast<float>(plane_side / stretch);
  return Maze_plane_xy(static_cast<int32_t>(w), static_cast<int32_t>(h));
}

void colour_randomly(Maze *root) {
  if (rand_int(2) != 0) {
    Maze_colour_field(root, colour_field_sine, 1);
    return;
  }
  const double blue = rand_real(flat_channel_range) + flat_channel_low;
  const double green = rand_real(flat_channel_range) + flat_channel_low;
  const double red = rand_real(flat_channel_range) + flat_channel_low;
  Maze_paint(root, rgb_colour(red, green, blue), 1);
}

} // namespace

Maze *Maze_choose() {
  Maze *topology = random_plane();
  Maze *root = Maze_carved(topology);
  Maze_destroy(topology, 1);
  // Before any bending, so that the colours follow the straight lattice.
  colour_randomly(root);
  if (rand_int(6) == 0) Maze_height_wave(root, 1);
  if (rand_int(3) == 0) Maze_map_positions(root, warp_position, 1);
  Maze_scale(root, final_spacing, 1);
  return root;
}
