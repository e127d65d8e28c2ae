#pragma once

#include "maze/maze.h"

// Builders of uncarved graphs on surfaces that close upon themselves, with a spacing of about 1.
// The caller owns the result.

// A torus around the z axis: `major` from its middle to that of its tube, `minor` the tube's own
// radius. The last node lies on the far side of ring and tube from node 0. At least three nodes
// must fit around each.
Maze *Maze_torus(double major, double minor);

// A band of one side around the z axis, at a distance of `major` and 2 `half` wide, which makes
// half a turn on its way round. The last node lies opposite node 0.
Maze *Maze_mobius(double major, double half);

// The hollow surface of a box with a, b and c cells along x, y and z, one corner at the origin.
Maze *Maze_box(int32_t a, int32_t b, int32_t c);
