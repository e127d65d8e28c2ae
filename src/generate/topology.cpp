#include "generate/topology.h"

#include <cmath>

#include "generate/closed.h"
#include "generate/curved.h"
#include "generate/flat.h"
#include "support/random.h"

namespace {

// From a single sheet to about a cube, always of about s squared nodes.
Maze *random_grid(double s) {
  const double u = rand_real(1.0 / 3.0);
  const int32_t w = static_cast<int32_t>(std::pow(s, 1.0 - u));
  const int32_t d = static_cast<int32_t>(std::pow(s, 2.0 * u));
  return Maze_grid3d(w, w, d);
}

Maze *random_cube(int32_t cells) {
  const int32_t n = 1 + rand_int(cells);
  return Maze_box(n, n, n);
}

Maze *random_box(int32_t cells) {
  const int32_t p = 1 + rand_int(cells);
  const int32_t q = 1 + rand_int(cells);
  const int32_t r = 1 + rand_int(cells);
  return Maze_box(p, q, r);
}

// Empty where the size leaves a shape no room.
Maze *drawn_topology(double s) {
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

Maze *Maze_random_topology(double s) {
  Maze *drawn = drawn_topology(s);
  if (maze_count(drawn) > 0) return drawn;
  Maze_destroy(drawn, 0);
  return Maze_box(1, 1, 1); // fits every size
}
