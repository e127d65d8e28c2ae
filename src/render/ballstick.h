#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The plot that shows the tree as a molecule: a ball on each node and a stick along each edge, both
// of the maze's half-width as radius, in the records' colours without ages. A body is one quad over
// its silhouette; the shaders meet the exact sphere or cylinder with the ray of each pixel, so
// bodies are smooth at any size and cut each other where they should.

// Draws the whole tree and the user's marker, a white ball of 1.5 times the radius. With `light`
// the user carries a light, and the marker is flat white. The modelview must be a rotation and a
// translation, the projection a perspective. A stick between two nodes at one place shows nothing.
void ballstick_plot(Maze *root, const World *world, int32_t light);
