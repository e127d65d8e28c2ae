#pragma once

#include "maze/maze.h"

// Builders of uncarved graphs on rings and triangles, with a spacing of about 1. The caller owns
// the result.

// A regular hexagon of triangular cells with n + 1 nodes to a side; its centre is where the middle
// node of the skew lattice lies, not the origin. No nodes at all if n is negative or has bit 30
// set; no memory holds one of more than 10,000.
Maze *Maze_hexagon(int32_t n);

// The same or, with `holes`, without the nodes in the middles of hexagonal cells: a honeycomb.
Maze *Maze_honeycomb(int32_t n, int32_t holes);

// Concentric rings with radii from `inner`, at least 1, to `outer` around the origin; none if inner
// exceeds outer.
Maze *Maze_polar(int32_t outer, int32_t inner);

// Rings of latitude, without the poles, around the origin. No nodes below a radius of 2 / pi.
Maze *Maze_sphere(double radius);
