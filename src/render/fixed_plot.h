#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The plot that is computed anew in each frame, for what it shows and not for speed: colours are up
// to the moment, with the trails of the Roamers. Edges near the eye are ribbons of three bands and
// nodes a large disc behind a small one; from a distance of 100 on edges are lines and nodes not
// drawn. The distance is that of the node that draws, which for an edge is its lesser end.

// Draws a maze, and with `all_levels` all below it too, each with its name above it. Without, edges
// are those of the maze's own rows.
void fixed_plot(Maze *root, const World *world, int32_t all_levels);

// A disc at right angles to the direction of the eye, within GL_QUADS under the program of discs.
// Nothing is seen of it where the eye is its centre.
void billboard_disc(Vec3 centre, double radius, uint32_t colour, Vec3 eye);

// Rounds a place to single precision. The variables are volatile because GCC 12 drops the
// conversions with -ftree-slp-vectorize, which -O2 and -O3 imply.
inline Vec3 single_precision(Vec3 a) {
  const volatile float x = static_cast<float>(a.x);
  const volatile float y = static_cast<float>(a.y);
  const volatile float z = static_cast<float>(a.z);
  return {x, y, z};
}
