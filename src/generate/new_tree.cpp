#include "generate/new_tree.h"

#include <cmath>
#include <cstring>

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

Maze *box(double size) {
  const int32_t cells = static_cast<int32_t>(size);
  return Maze_box(cells, cells, cells);
}

Maze *patchwork(double) {
  return Maze_patchwork();
}

Maze *ladder(double) {
  return Maze_ladder();
}

constexpr MazeKind kinds[] = {
    {"plane", random_plane, 50.0, 1.0, 2, 3, 0, 3, 400, true},
    {"hexagon", hexagon, 25.0, 3.1, 2, 1, 0, 1, 460, true},
    {"honeycomb", honeycomb, 50.0, 2.1, 2, 1, 0, 1, 960, true},
    {"grid", random_block, 10.0, 1.0, 3, 1, 0, 1, 400, true},
    {"polar", polar, 50.0, 3.2, 2, 1, 0, 1, 400, true},
    {"sphere", Maze_sphere, 20.0, 12.6, 2, 1, 0, 1, 400, true},
    {"nested", Maze_random_topology, 20.0, 2.5, 2, 5, 1, 1, 400, true},
    {"nested-twice", Maze_random_topology, 10.0, 1.6, 2, 5, 2, 1, 400, true},
    {"torus", torus, 20.0, 19.8, 2, 1, 0, 1, 400, true},
    {"band", mobius, 20.0, 12.6, 2, 1, 0, 1, 400, true},
    {"box", box, 20.0, 6.0, 2, 1, 0, 0, 620, true},
    {"patchwork", patchwork, 0.0, 0.0, 0, 1, 0, 0, 400, true},
    {"ladder", ladder, 0.0, 0.0, 0, 1, 0, 0, 400, false},
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

// Nests and colours one topology, and perhaps bends it.
void decorate(Maze *root, const MazeKind &kind, double size) {
  for (int32_t pass = 0; pass < kind.nesting_passes; pass++)
    Maze_nest(root, nesting_probability, size, Maze_random_topology);
  // Colour before bending, so that colours follow the straight lattice.
  colour_randomly(root);
  if (rand_int(6) == 0) Maze_height_wave(root, 1);
  if (rand_int(3) == 0) Maze_map_positions(root, warp_position, 1);
}

void name_tree(Maze *root) {
  string_assign(&root->name, "1.01");
  Maze_label_tree(root);
}

const MazeKind &drawn_kind() {
  int32_t all = 0;
  for (const MazeKind &kind : kinds)
    all += kind.draws;
  int32_t draw = rand_int(all);
  size_t kind = 0;
  for (; draw >= kinds[kind].draws; kind++)
    draw -= kinds[kind].draws;
  return kinds[kind];
}

} // namespace

const MazeKind *MazeKind_find(const char *name) {
  for (const MazeKind &kind : kinds)
    if (std::strcmp(kind.name, name) == 0) return &kind;
  return nullptr;
}

double MazeKind_nodes(const MazeKind &kind, double size) {
  const double nodes = kind.node_factor * std::pow(size, kind.node_power);
  double all = nodes;
  for (int32_t pass = 0; pass < kind.nesting_passes; pass++)
    all += nesting_probability * all * nodes;
  return all;
}

Maze *Maze_new_of_kind(const MazeKind &kind, double size) {
  Maze *root = kind.build(size);
  if (kind.carve) Maze_carve(root); // before nesting, which needs the final slots of the holders
  if (kind.size > 0)
    decorate(root, kind, size);
  else
    name_tree(root);
  Maze_scale(root, final_spacing, 1);
  return root;
}

Maze *Maze_new_tree(int32_t mode) {
  if (mode == 1) return Maze_new_of_kind(*MazeKind_find("patchwork"), 0);
  if (mode == 2) return Maze_new_of_kind(*MazeKind_find("ladder"), 0);
  const MazeKind &kind = drawn_kind();
  return Maze_new_of_kind(kind, kind.size);
}
