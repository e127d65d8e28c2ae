#include "generate/closed.h"

#include <cmath>
#include <numbers>

#include "generate/flat.h"
#include "generate/transform.h"
#include "maze/edit.h"

namespace {

using std::numbers::pi;

// Nodes around a circle with a spacing of about 1.
int32_t around(double radius) {
  return static_cast<int32_t>(2.0 * pi * radius);
}

void append_node(Maze *maze, Vec3 p) {
  MazeNode node = {};
  MazeNode_init(&node, p.x, p.y, p.z);
  GrowList_append(&maze->nodes, &node);
}

Vec3 torus_place(double major, double minor, double a, double b) {
  const double from_axis = major + minor * std::cos(b);
  return {from_axis * std::cos(a), from_axis * std::sin(a), minor * std::sin(b)};
}

// Across the band by t from its middle line, at the angle a around it.
Vec3 band_place(double major, double t, double a) {
  const double from_axis = major + t * std::cos(a / 2.0);
  return {from_axis * std::cos(a), from_axis * std::sin(a), t * std::sin(a / 2.0)};
}

// Gives the node at half of both counts the last index, as far from node 0 as can be.
void swap_far_node(Maze *maze, int32_t nu, int32_t nv) {
  if (maze_count(maze) > 0) Maze_swap_nodes(maze, maze_count(maze) - 1, nu / 2 * nv + nv / 2);
}

// Welds a further face, `offset` from where it was built, to the box so far.
void add_face(Maze *box, Maze *face, Vec3 offset) {
  Maze_translate(face, offset, 0);
  Maze_weld_onto(box, face);
  Maze_destroy(face, 1);
}

} // namespace

Maze *Maze_torus(double major, double minor) {
  const int32_t nu = around(major);
  const int32_t nv = around(minor);
  Maze *maze = Maze_new();
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(nu * nv));
  for (int32_t u = 0; u < nu; u++)
    for (int32_t v = 0; v < nv; v++)
      append_node(maze, torus_place(major, minor, u * (2.0 * pi) / nu, v * (2.0 * pi) / nv));
  for (int32_t u = 0; u < nu; u++)
    for (int32_t v = 0; v < nv; v++) {
      Maze_join(maze, u * nv + v, (u + 1) % nu * nv + v);
      Maze_join(maze, u * nv + v, u * nv + (v + 1) % nv);
    }
  swap_far_node(maze, nu, nv);
  return maze;
}

Maze *Maze_mobius(double major, double half) {
  const int32_t nu = around(major);
  const int32_t nv = static_cast<int32_t>(2.0 * half + 1.0);
  Maze *maze = Maze_new();
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(nu * nv));
  for (int32_t u = 0; u < nu; u++)
    for (int32_t v = 0; v < nv; v++)
      append_node(maze, band_place(major, v - 0.5 * (nv - 1), u * (2.0 * pi) / nu));
  for (int32_t u = 0; u < nu; u++)
    for (int32_t v = 0; v < nv; v++) {
      // The seam is closed mirrored, which is what makes the band one-sided.
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
