#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The plot that shows the tree as a molecule: a ball on each node and a stick along each edge, with
// the maze's half-width as radius, in colours without ages. Each is one quad that covers its
// silhouette. The shaders intersect the ray of each pixel with the exact sphere or cylinder, so
// they are smooth at any size and intersect each other exactly.

// Draws a tree and the user's marker, a white ball of 1.5 times the radius. With `light` the user
// carries a light, and the marker is plain white. The modelview must be a rotation and a
// translation, the projection a perspective. A stick between two nodes in one place is invisible.
void ballstick_plot(Maze *root, const World *world, int32_t light);
