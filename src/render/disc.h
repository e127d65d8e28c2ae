#pragma once

#include <cstdint>

#include "support/vec3.h"

// Two unit vectors at right angles to v and to each other; zero vectors if v has no length.
void perpendicular_pair(Vec3 v, Vec3 *a, Vec3 *b);

// A round disc that faces the eye, in the fixed pipeline, with as many segments as its size on the
// screen asks for; none, and nothing drawn, if it is very small. `radius` is in world units.
void fan_disc(Vec3 centre, double radius, uint32_t colour, Vec3 eye);
