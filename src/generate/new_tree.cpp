#include "generate/new_tree.h"

#include <cmath>
#include <iterator>

#include "generate/carve.h"
#include "generate/composition.h"
#include "generate/nest.h"
#include "generate/paint.h"
#include "generate/topologies.h"
#include "generate/transform.h"
#include "support/colour.h"
#include "support/random.h"
#include "support/strings.h"

namespace {

constexpr double final_spacing = 2.5;       // world units between neighbours
constexpr double nesting_probability = 0.5; // per node
constexpr double min_plain_channel = 0.25;  // of a random uniform colour
constexpr double plain_channel_range = 0.5;

// A plane of about size squared nodes. The ratio of its sides is between 1 / e^2 and e^2.
Maze *random_plane(double size) {
  const double stretch = std::exp(rand_real(2.0) - 1.0);
  const float w = static_cast<float>(size * stretch);
  const float h = static_cast<float>(size / stretch);
  return Maze_plane_xy(static_cast<int32_t>(w), static_cast<int32_t>(h));
}

Maze *random_block(double max_size) {
  const int32_t sizes = static_cast<int32_t>(max_size) - 1; // from 2 up
  const int32_t a = 2 + rand_int(sizes);
  const int32_t b = 2 + rand_int(sizes);
  const int32_t c = 2 + rand_int(sizes);
  return Maze_grid3d(a, b, c);
}

Maze *hexagon(double size) {
  return Maze_hexagon(static_cast<int32_t>(size));
}

Maze *honeycomb(double size) {
  return Maze_honeycomb(static_cast<int32_t>(size), 1);
}

Maze *polar(double size) {
  return Maze_polar(static_cast<int32_t>(size), 1);
}

Maze *torus(double size) {
  return Maze_torus(size, size / 2);
}

Maze *mobius(double size) {
  return Maze_mobius(size, size / 2);
}

// A kind of maze, and how often mazes of the same size are nested in it.
struct Kind {
  SubmazeGenerator build;
  double size;
  int32_t nesting_passes;
};

constexpr Kind kinds[] = {
    {random_plane, 50.0, 0},
    {random_plane, 50.0, 0},
    {random_plane, 50.0, 0},
    {hexagon, 25.0, 0},
    {honeycomb, 50.0, 0},
    {random_block, 10.0, 0},
    {polar, 50.0, 0},
    {Maze_sphere, 20.0, 0},
    {Maze_random_topology, 20.0, 1},
    {Maze_random_topology, 10.0, 2},
    {torus, 20.0, 0},
    {mobius, 20.0, 0},
};

void colour_randomly(Maze *root) {
  if (rand_int(2) != 0) {
    Maze_colour_field(root, colour_field_sine, 1);
    return;
  }
  const double blue = rand_real(plain_channel_range) + min_plain_channel;
  const double green = rand_real(plain_channel_range) + min_plain_channel;
  const double red = rand_real(plain_channel_range) + min_plain_channel;
  Maze_paint(root, rgb_colour(red, green, blue), 1);
}

Maze *single_topology() {
  const Kind &kind = kinds[rand_int(static_cast<int32_t>(std::size(kinds)))];
  Maze *root = kind.build(kind.size);
  // Nesting needs the final slots of the holders, so carve first.
  Maze_carve(root);
  for (int32_t pass = 0; pass < kind.nesting_passes; pass++)
    Maze_nest(root, nesting_probability, kind.size, Maze_random_topology);
  // Colour before bending, so that colours follow the straight lattice.
  colour_randomly(root);
  if (rand_int(6) == 0) Maze_height_wave(root, 1);
  if (rand_int(3) == 0) Maze_map_positions(root, warp_position, 1);
  return root;
}

Maze *carved_patchwork() {
  Maze *root = Maze_patchwork();
  Maze_carve(root);
  return root;
}

Maze *unscaled_tree(int32_t mode) {
  if (mode != 1 && mode != 2) return single_topology();
  Maze *root = mode == 1 ? carved_patchwork() : Maze_ladder();
  string_assign(&root->name, "1.01");
  Maze_label_tree(root);
  return root;
}

} // namespace

Maze *Maze_new_tree(int32_t mode) {
  Maze *root = unscaled_tree(mode);
  Maze_scale(root, final_spacing, 1);
  return root;
}
