#include "generate/curved.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "maze/edit.h"
#include "support/bits.h"

namespace {

using std::numbers::pi;

constexpr double ring_density = 4.1887902047863905; // 4 pi / 3 nodes per unit of radius
// sqrt(3) / 2 as it comes out of 32 bits: the height of the triangles.
constexpr double row_height = 0.8660253882408142;

void add_skew_node(Maze *maze, int32_t m, int32_t i, int32_t j) {
  constexpr int32_t steps[][2] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, 1}};
  MazeNode node = {};
  MazeNode_init(&node, i - 0.5 * j, row_height * j, 0.0);
  for (const auto &[di, dj] : steps) {
    const int32_t x = i + di;
    const int32_t y = j + dj;
    if (x >= 0 && x < m && y >= 0 && y < m) MazeNode_append_slot(&node, y * m + x);
  }
  GrowList_append(&maze->nodes, &node);
}

// Rings by their numbers, on a disc, where ring r has the radius r, or on a sphere, where the angle
// from its pole is r times the step.
struct Rings {
  int32_t first, last;
  double step;
  double radius; // of the sphere; 0 for a disc
};

double ring_radius(const Rings &rings, int32_t r) {
  return rings.radius > 0 ? rings.radius * std::sin(r * rings.step) : r;
}

// Powers of two, so that neighbouring rings have equal counts or one has twice the other's. A
// function of the ring's number alone, lest neighbours disagree by a rounding.
int64_t ring_count(const Rings &rings, int32_t r) {
  return next_power_of_two(static_cast<uint32_t>(ring_density * ring_radius(rings, r)));
}

// A step from place k of a ring of n to the ring beside it with `other` nodes from index `base` on,
// if it has a node at the same angle.
void append_spoke(MazeNode *node, int64_t k, int64_t n, int64_t other, int64_t base) {
  if (k * other % n == 0) MazeNode_append_slot(node, static_cast<int32_t>(base + k * other / n));
}

void add_ring(Maze *maze, const Rings &rings, int32_t r) {
  const int64_t n = ring_count(rings, r);
  const int64_t inside = r > rings.first ? ring_count(rings, r - 1) : 0;
  const int64_t outside = r < rings.last ? ring_count(rings, r + 1) : 0;
  const int64_t base = maze_count(maze);
  const double radius = ring_radius(rings, r);
  const double z = rings.radius > 0 ? rings.radius * std::cos(r * rings.step) : 0.0;
  for (int64_t k = 0; k < n; k++) {
    const double angle = static_cast<double>(k) * (2.0 * pi) / static_cast<double>(n);
    MazeNode node = {};
    MazeNode_init(&node, radius * std::cos(angle), radius * std::sin(angle), z);
    MazeNode_append_slot(&node, static_cast<int32_t>(base + (k + n - 1) % n));
    MazeNode_append_slot(&node, static_cast<int32_t>(base + (k + 1) % n));
    if (r > rings.first) append_spoke(&node, k, n, inside, base - inside);
    if (r < rings.last) append_spoke(&node, k, n, outside, base + n);
    GrowList_append(&maze->nodes, &node);
  }
}

Maze *build(const Rings &rings) {
  Maze *maze = Maze_new();
  int64_t count = 0;
  for (int32_t r = rings.first; r <= rings.last; r++)
    count += ring_count(rings, r);
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(count));
  for (int32_t r = rings.first; r <= rings.last; r++)
    add_ring(maze, rings, r);
  return maze;
}

} // namespace

Maze *Maze_hexagon(int32_t n) {
  return Maze_honeycomb(n, 0);
}

Maze *Maze_honeycomb(int32_t n, int32_t holes) {
  Maze *maze = Maze_new();
  if (n < 0 || (n & 1 << 30) != 0) return maze;
  const int32_t m = 2 * n + 1;
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(m * m));
  for (int32_t j = 0; j < m; j++)
    for (int32_t i = 0; i < m; i++)
      add_skew_node(maze, m, i, j);
  // Downwards: a deletion moves the last node into the hole, and that one has been judged.
  for (int32_t j = m; j-- > 0;)
    for (int32_t i = m; i-- > 0;) {
      const bool corner = std::abs(i - j) > n;
      const bool hole = holes != 0 && (i + j - 2 * n) % 3 == 0;
      if (corner || hole) Maze_delete_node(maze, j * m + i);
    }
  return maze;
}

Maze *Maze_polar(int32_t outer, int32_t inner) {
  return build({inner, outer, 0.0, 0.0});
}

Maze *Maze_sphere(double radius) {
  const int32_t rings = static_cast<int32_t>(pi * radius);
  if (rings < 2) return Maze_new();
  return build({1, rings - 1, pi / rings, radius});
}
