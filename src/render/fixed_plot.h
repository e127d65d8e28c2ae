#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The plot that is recomputed every frame: slow, but always current. Its colours include the trails
// of the Roamers. Edges near the camera are ribbons of three bands and nodes a large disc behind a
// small one; from a distance of 100 on edges are lines, and nodes are not drawn. The distance is
// that of the node that draws the edge (Pos_before).

// Draws a maze, and with `all_levels` all below it, each with its name above it. Without it, edges
// are those of the maze's own table. Culls nodes with the bounds of the line plot's caches, where
// they are built.
void fixed_plot(Maze *root, const World *world, int32_t all_levels);

// Sends a disc that faces the eye, within GL_QUADS and under the program of discs. Nothing shows
// if the eye is at its centre.
void billboard_disc(Vec3 centre, double radius, uint32_t colour, Vec3 eye);

// Rounds a place to single precision. The variables are volatile because GCC 12 drops the
// conversions with -ftree-slp-vectorize, which -O2 and -O3 imply.
inline Vec3 single_precision(Vec3 a) {
  const volatile float x = static_cast<float>(a.x);
  const volatile float y = static_cast<float>(a.y);
  const volatile float z = static_cast<float>(a.z);
  return {x, y, z};
}
