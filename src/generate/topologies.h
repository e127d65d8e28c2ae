#pragma once

#include "maze/maze.h"

// Builders of uncarved graphs, with a spacing of about 1 between neighbours. The caller owns the
// result. What does not fit a size gives a maze without nodes.

// Lattices. Counts are in nodes; their product must be below 2^31.

// Node (column, row) has the index row * w + column. The position is (column, row, 0) for xy,
// (column, 0, row) for xz and (0, column, row) for yz.
Maze *Maze_plane_xy(int32_t w, int32_t h);
Maze *Maze_plane_xz(int32_t w, int32_t h);
Maze *Maze_plane_yz(int32_t w, int32_t h);

// Node (x, y, z) has the index (z * h + y) * w + x.
Maze *Maze_grid3d(int32_t w, int32_t h, int32_t d);

// A regular hexagon of triangles with n + 1 nodes per side. The origin is a corner of its bounding
// lattice, not its centre. Empty if n is negative or above 23,169.
Maze *Maze_hexagon(int32_t n);

// The same, but if `holes` is not 0 without the node in the middle of each small hexagon.
Maze *Maze_honeycomb(int32_t n, int32_t holes);

// Concentric rings around the origin with radii from `inner`, at least 1, to `outer`.
Maze *Maze_polar(int32_t outer, int32_t inner);

// Rings of latitude around the origin, without the poles. Empty below a radius of 2 / pi.
Maze *Maze_sphere(double radius);

// A torus around the z axis: `major` is the radius of the ring, `minor` that of its tube. At least
// three nodes must fit around each. The last node is opposite node 0 on both circles.
Maze *Maze_torus(double major, double minor);

// A Mobius strip around the z axis, 2 `half` wide, with its middle at the distance `major`. The
// last node is opposite node 0.
Maze *Maze_mobius(double major, double half);

// The surface of a box with a, b and c cells along x, y and z and one corner at the origin.
Maze *Maze_box(int32_t a, int32_t b, int32_t c);

// Makes an uncarved maze that spans at most about size - 1 along each axis, so that mazes of the
// same size fit on a grid with that spacing. The caller owns it.
using SubmazeGenerator = Maze *(*)(double size);

// A random topology of size `s`, at least 2. One that does not fit, which can happen below 7, is
// replaced by a cube of eight nodes.
Maze *Maze_random_topology(double s);
