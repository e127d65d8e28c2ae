#pragma once

#include <cstdint>
#include <limits>

#include "support/vec3.h"

// What part of the world the current matrices can show, so that what lies wholly outside needn't be
// drawn. All tests err on the side of seeing.

// A box along the axes, in world units; empty, and so never to be seen, if low is above high.
struct Box {
  Vec3 low, high;
};

constexpr double box_limit = std::numeric_limits<double>::infinity();
constexpr Box box_empty = {{box_limit, box_limit, box_limit}, {-box_limit, -box_limit, -box_limit}};

// Widens the box to hold a point, or all of space if the point isn't finite.
void Box_add(Box *box, Vec3 point);

// Widens the box to hold a ball and, in whatever view, its square.
void Box_add_ball(Box *box, Vec3 centre, double radius);

// Widens the box to hold another.
void Box_unite(Box *box, const Box &other);

// The greatest distance between a point and anything in the box.
double Box_farthest(const Box &box, Vec3 from);

// The planes that bound the picture and the depth slab, those at the sides first. A point is
// outside if plane . (x, y, z, 1) is below zero by more than error . (|x|, |y|, |z|, 1).
constexpr int32_t sight_sides = 4;
constexpr int32_t sight_planes = 6;

struct Sight {
  double plane[sight_planes][4];
  double error[sight_planes][4];
  double steepness[sight_planes]; // by what a plane's value changes over a world unit at most
};

// The sight of the current projection and modelview matrices, whose rounding and whose rasteriser's
// guard of some pixels it allows for.
Sight sight_now();

// Whether all that reaches no further than `growth` out of the box lies outside one of the first
// `planes` planes.
bool Sight_excludes(const Sight &sight, const Box &box, double growth, int32_t planes);

// Tests set this to draw everything, for pictures to compare with.
extern bool sight_excludes_nothing;
