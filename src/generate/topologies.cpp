#include "generate/topologies.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "generate/transform.h"
#include "maze/edit.h"
#include "maze/lifetime.h"
#include "support/bits.h"
#include "support/random.h"
#include "support/trigonometry.h"

namespace {

using std::numbers::pi;

MazeNode node_at(Vec3 p) {
  MazeNode node = {};
  MazeNode_init(&node, p.x, p.y, p.z);
  return node;
}

// Lattices: the node counts and the steps in three directions.
struct Lattice {
  int32_t w, h, d;
  Vec3 right, up, deep;
};

constexpr int32_t max_hexagon = 23169; // its lattice has fewer than 2^31 nodes

constexpr Vec3 along_x = {1, 0, 0};
constexpr Vec3 along_y = {0, 1, 0};
constexpr Vec3 along_z = {0, 0, 1};

void add_lattice_node(Maze *maze, const Lattice &box, int32_t x, int32_t y, int32_t z) {
  const int32_t layer = box.w * box.h;
  const int32_t index = z * layer + y * box.w + x;
  MazeNode node = node_at(box.right * x + box.up * y + box.deep * z);
  if (x > 0) MazeNode_append_slot(&node, index - 1);
  if (x + 1 < box.w) MazeNode_append_slot(&node, index + 1);
  if (y > 0) MazeNode_append_slot(&node, index - box.w);
  if (y + 1 < box.h) MazeNode_append_slot(&node, index + box.w);
  if (z > 0) MazeNode_append_slot(&node, index - layer);
  if (z + 1 < box.d) MazeNode_append_slot(&node, index + layer);
  GrowList_append(&maze->nodes, &node);
}

Maze *build_lattice(const Lattice &box) {
  Maze *maze = Maze_new();
  if (box.w < 1 || box.h < 1 || box.d < 1) return maze;
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(box.w * box.h * box.d));
  for (int32_t z = 0; z < box.d; z++)
    for (int32_t y = 0; y < box.h; y++)
      for (int32_t x = 0; x < box.w; x++)
        add_lattice_node(maze, box, x, y, z);
  return maze;
}

// sqrt(3) / 2, rounded to single precision: the height of a triangle.
constexpr double row_height = 0.8660253882408142;

// Node (i, j) of a skew lattice with m nodes along each axis.
void add_skew_node(Maze *maze, int32_t m, int32_t i, int32_t j) {
  constexpr int32_t steps[][2] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, 1}};
  MazeNode node = node_at({i - 0.5 * j, row_height * j, 0.0});
  for (const auto &[di, dj] : steps) {
    const int32_t x = i + di;
    const int32_t y = j + dj;
    if (x >= 0 && x < m && y >= 0 && y < m) MazeNode_append_slot(&node, y * m + x);
  }
  GrowList_append(&maze->nodes, &node);
}

// A direction in the plane, as cosine and sine.
struct Angle {
  double cosine, sine;
};

Angle angle_at(double radians) {
  return {portable_cos(radians), portable_sin(radians)};
}

// Rings of a disc, where ring r has the radius r, or of a sphere, where the angle between ring r
// and the pole is r times the step.
struct Rings {
  int32_t first, last;
  double step;
  double radius; // of the sphere; 0 for a disc
};

constexpr double ring_density = 4.1887902047863905; // 4 pi / 3 nodes per unit of radius

double ring_radius(const Rings &rings, int32_t r) {
  return rings.radius > 0 ? rings.radius * portable_sin(r * rings.step) : r;
}

// Node count of a ring: a power of two, so that neighbouring rings have equal counts or one has
// twice the other's.
int64_t ring_count(const Rings &rings, int32_t r) {
  return next_power_of_two(static_cast<uint32_t>(ring_density * ring_radius(rings, r)));
}

// Joins node k of a ring of n nodes to the node at the same angle, if there is one, of a ring with
// `other` nodes from index `base`.
void append_spoke(MazeNode *node, int64_t k, int64_t n, int64_t other, int64_t base) {
  if (k * other % n == 0) MazeNode_append_slot(node, static_cast<int32_t>(base + k * other / n));
}

void add_ring(Maze *maze, const Rings &rings, int32_t r) {
  const int64_t n = ring_count(rings, r);
  const int64_t inside = r > rings.first ? ring_count(rings, r - 1) : 0;
  const int64_t outside = r < rings.last ? ring_count(rings, r + 1) : 0;
  const int64_t base = maze_count(maze);
  const double radius = ring_radius(rings, r);
  const double z = rings.radius > 0 ? rings.radius * portable_cos(r * rings.step) : 0.0;
  for (int64_t k = 0; k < n; k++) {
    const Angle a = angle_at(static_cast<double>(k) * (2.0 * pi) / static_cast<double>(n));
    MazeNode node = node_at({radius * a.cosine, radius * a.sine, z});
    MazeNode_append_slot(&node, static_cast<int32_t>(base + (k + n - 1) % n));
    MazeNode_append_slot(&node, static_cast<int32_t>(base + (k + 1) % n));
    if (r > rings.first) append_spoke(&node, k, n, inside, base - inside);
    if (r < rings.last) append_spoke(&node, k, n, outside, base + n);
    GrowList_append(&maze->nodes, &node);
  }
}

Maze *build_rings(const Rings &rings) {
  Maze *maze = Maze_new();
  int64_t count = 0;
  for (int32_t r = rings.first; r <= rings.last; r++)
    count += ring_count(rings, r);
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(count));
  for (int32_t r = rings.first; r <= rings.last; r++)
    add_ring(maze, rings, r);
  return maze;
}

// Number of nodes on a circle, at a spacing of about 1.
int32_t circle_count(double radius) {
  return static_cast<int32_t>(2.0 * pi * radius);
}

// At the angle a around the axis and b around the tube.
Vec3 torus_position(double major, double minor, Angle a, Angle b) {
  const double from_axis = major + minor * b.cosine;
  return {from_axis * a.cosine, from_axis * a.sine, minor * b.sine};
}

// At the angle a around the axis and the distance t from the middle of the strip.
Vec3 mobius_position(double major, double t, Angle a, Angle half_a) {
  const double from_axis = major + t * half_a.cosine;
  return {from_axis * a.cosine, from_axis * a.sine, t * half_a.sine};
}

// Adds nu x nv nodes; position(a, half_a, v) is that of node v at an angle a around the axis.
template <typename Position>
void add_circles(Maze *maze, int32_t nu, int32_t nv, const Position &position) {
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(nu * nv));
  for (int32_t u = 0; u < nu; u++) {
    const double radians = u * (2.0 * pi) / nu;
    const Angle a = angle_at(radians), half_a = angle_at(radians / 2.0);
    for (int32_t v = 0; v < nv; v++) {
      const MazeNode node = node_at(position(a, half_a, v));
      GrowList_append(&maze->nodes, &node);
    }
  }
}

// Makes the node opposite node 0 the last one.
void swap_far_node(Maze *maze, int32_t nu, int32_t nv) {
  if (maze_count(maze) > 0) Maze_swap_nodes(maze, maze_count(maze) - 1, nu / 2 * nv + nv / 2);
}

// Moves a face by `offset` and welds it to the box.
void add_face(Maze *box, Maze *face, Vec3 offset) {
  Maze_translate(face, offset, 0);
  Maze_weld_onto(box, face);
  Maze_destroy(face, 1);
}

// From a single sheet to about a cube, always of about s squared nodes.
Maze *random_grid(double s) {
  const double u = rand_real(1.0 / 3.0);
  const int32_t w = static_cast<int32_t>(std::pow(s, 1.0 - u));
  const int32_t d = static_cast<int32_t>(std::pow(s, 2.0 * u));
  return Maze_grid3d(w, w, d);
}

Maze *random_cube(int32_t max_cells) {
  const int32_t n = 1 + rand_int(max_cells);
  return Maze_box(n, n, n);
}

Maze *random_box(int32_t max_cells) {
  const int32_t p = 1 + rand_int(max_cells);
  const int32_t q = 1 + rand_int(max_cells);
  const int32_t r = 1 + rand_int(max_cells);
  return Maze_box(p, q, r);
}

// Without nodes if the topology does not fit.
Maze *random_topology(double s) {
  const int32_t width = static_cast<int32_t>(s - 1.0);
  const int32_t half = static_cast<int32_t>((s - 1.0) * 0.5);
  const int32_t major = 2 * half / 3;
  const int32_t minor = half / 3;
  switch (rand_int(11)) {
  case 3:
    return Maze_polar(half, 1);
  case 4:
    return Maze_hexagon(half);
  case 5:
    return Maze_honeycomb(half, 1);
  case 6:
    return Maze_sphere(half);
  case 7:
    return Maze_torus(major, minor);
  case 8:
    return Maze_mobius(major, minor);
  case 9:
    return random_cube(width);
  case 10:
    return random_box(width);
  default: // 0 to 2
    return random_grid(s);
  }
}

} // namespace

Maze *Maze_plane_xy(int32_t w, int32_t h) {
  return build_lattice({w, h, 1, along_x, along_y, along_z});
}

Maze *Maze_plane_xz(int32_t w, int32_t h) {
  return build_lattice({w, h, 1, along_x, along_z, along_y});
}

Maze *Maze_plane_yz(int32_t w, int32_t h) {
  return build_lattice({w, h, 1, along_y, along_z, along_x});
}

Maze *Maze_grid3d(int32_t w, int32_t h, int32_t d) {
  return build_lattice({w, h, d, along_x, along_y, along_z});
}

Maze *Maze_hexagon(int32_t n) {
  return Maze_honeycomb(n, 0);
}

Maze *Maze_honeycomb(int32_t n, int32_t holes) {
  Maze *maze = Maze_new();
  if (n < 0 || n > max_hexagon) return maze;
  const int32_t m = 2 * n + 1;
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(m * m));
  for (int32_t j = 0; j < m; j++)
    for (int32_t i = 0; i < m; i++)
      add_skew_node(maze, m, i, j);
  // Downwards, since a deletion moves the last node, which was already checked, to the gap.
  for (int32_t j = m; j-- > 0;)
    for (int32_t i = m; i-- > 0;) {
      const bool corner = std::abs(i - j) > n;
      const bool hole = holes != 0 && (i + j - 2 * n) % 3 == 0;
      if (corner || hole) Maze_delete_node(maze, j * m + i);
    }
  return maze;
}

Maze *Maze_polar(int32_t outer, int32_t inner) {
  return build_rings({inner, outer, 0.0, 0.0});
}

Maze *Maze_sphere(double radius) {
  const int32_t rings = static_cast<int32_t>(pi * radius);
  if (rings < 2) return Maze_new();
  return build_rings({1, rings - 1, pi / rings, radius});
}

Maze *Maze_torus(double major, double minor) {
  const int32_t nu = circle_count(major);
  const int32_t nv = circle_count(minor);
  Maze *maze = Maze_new();
  add_circles(maze, nu, nv, [=](Angle a, Angle, int32_t v) {
    return torus_position(major, minor, a, angle_at(v * (2.0 * pi) / nv));
  });
  for (int32_t u = 0; u < nu; u++)
    for (int32_t v = 0; v < nv; v++) {
      Maze_join(maze, u * nv + v, (u + 1) % nu * nv + v);
      Maze_join(maze, u * nv + v, u * nv + (v + 1) % nv);
    }
  swap_far_node(maze, nu, nv);
  return maze;
}

Maze *Maze_mobius(double major, double half) {
  const int32_t nu = circle_count(major);
  const int32_t nv = static_cast<int32_t>(2.0 * half + 1.0);
  Maze *maze = Maze_new();
  add_circles(maze, nu, nv, [=](Angle a, Angle half_a, int32_t v) {
    return mobius_position(major, v - 0.5 * (nv - 1), a, half_a);
  });
  for (int32_t u = 0; u < nu; u++)
    for (int32_t v = 0; v < nv; v++) {
      // The ends are joined mirrored, which makes the strip one-sided.
      Maze_join(maze, u * nv + v, u + 1 < nu ? (u + 1) * nv + v : nv - 1 - v);
      if (v < nv - 1) Maze_join(maze, u * nv + v, u * nv + v + 1);
    }
  swap_far_node(maze, nu, nv);
  return maze;
}

Maze *Maze_box(int32_t a, int32_t b, int32_t c) {
  Maze *box = Maze_new();
  add_face(box, Maze_plane_xy(a + 1, b + 1), {0, 0, 0});
  add_face(box, Maze_plane_xy(a + 1, b + 1), {0, 0, static_cast<double>(c)});
  add_face(box, Maze_plane_xz(a + 1, c + 1), {0, 0, 0});
  add_face(box, Maze_plane_xz(a + 1, c + 1), {0, static_cast<double>(b), 0});
  add_face(box, Maze_plane_yz(b + 1, c + 1), {0, 0, 0});
  add_face(box, Maze_plane_yz(b + 1, c + 1), {static_cast<double>(a), 0, 0});
  return box;
}

Maze *Maze_random_topology(double s) {
  Maze *maze = random_topology(s);
  if (maze_count(maze) > 0) return maze;
  Maze_destroy(maze, 0);
  return Maze_box(1, 1, 1);
}
