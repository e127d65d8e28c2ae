#pragma once

#include <cstdint>

#include "support/vec3.h"

// Two unit vectors perpendicular to v and to each other; zero vectors if v has no length.
void perpendicular_pair(Vec3 v, Vec3 *a, Vec3 *b);

// Draws a disc that faces the eye, with the fixed pipeline. The number of segments follows from its
// size in pixels; a very small disc has none and isn't drawn. `radius` is in world units.
void fan_disc(Vec3 centre, double radius, uint32_t colour, Vec3 eye);
