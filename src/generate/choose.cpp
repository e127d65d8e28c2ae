#include "generate/choose.h"

#include <cmath>

#include "generate/carve.h"
#include "generate/closed.h"
#include "generate/curved.h"
#include "generate/flat.h"
#include "generate/ladder.h"
#include "generate/nest.h"
#include "generate/paint.h"
#include "generate/patchwork.h"
#include "generate/topology.h"
#include "generate/transform.h"
#include "support/colour.h"
#include "support/random.h"
#include "support/strings.h"

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

Maze *random_block() {
  const int32_t a = 2 + rand_int(9);
  const int32_t b = 2 + rand_int(9);
  const int32_t c = 2 + rand_int(9);
  return Maze_grid3d(a, b, c);
}

// How often a kind of maze is nested, with mazes of which size.
struct Nesting {
  int32_t passes;
  double size;
};

Nesting nesting_of(int32_t t) {
  if (t == 8) return {1, 20.0};
  if (t == 9) return {2, 10.0};
  return {0, 0.0};
}

Maze *topology_of(int32_t t) {
  switch (t) {
  case 3:
    return Maze_hexagon(25);
  case 4:
    return Maze_honeycomb(50, 1);
  case 5:
    return random_block();
  case 6:
    return Maze_polar(50, 1);
  case 7:
    return Maze_sphere(20.0);
  case 8:
  case 9:
    return Maze_random_topology(nesting_of(t).size);
  case 10:
    return Maze_torus(20.0, 10.0);
  case 11:
    return Maze_mobius(20.0, 10.0);
  default: // 0 to 2
    return random_plane();
  }
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

Maze *random_tree() {
  const int32_t t = rand_int(12);
  Maze *root = topology_of(t);
  // Doors are aligned to the rows of the nodes that hold them, so every level is carved first.
  Maze_carve(root);
  const Nesting nesting = nesting_of(t);
  for (int32_t pass = 0; pass < nesting.passes; pass++)
    Maze_nest(root, 0.5, nesting.size, Maze_random_topology);
  // Before any bending, so that the colours follow the straight lattice.
  colour_randomly(root);
  if (rand_int(6) == 0) Maze_height_wave(root, 1);
  if (rand_int(3) == 0) Maze_map_positions(root, warp_position, 1);
  return root;
}

Maze *labelled(Maze *root) {
  string_assign(&root->name, "1.01");
  Maze_label_tree(root);
  return root;
}

Maze *unscaled_tree(int32_t mode) {
  if (mode == 2) return labelled(Maze_ladder());
  if (mode != 1) return random_tree();
  Maze *root = Maze_patchwork();
  Maze_carve(root);
  return labelled(root);
}

} // namespace

Maze *Maze_choose(int32_t mode) {
  Maze *root = unscaled_tree(mode);
  Maze_scale(root, final_spacing, 1);
  return root;
}
