#pragma once

#include "world/world.h"

// The user's motion along the graph. A step through a door is a step along an entry of Pos_alledges
// like any other.

// Adds mx times the view's right and my times its up, in world units, to the user's offset. Takes
// at most one step, along the edge that the offset points to best, once the offset has passed its
// end. An offset that points to no edge is reset.
void World_move(World *world, double mx, double my);

// Returns the one of `count` neighbours that the offset points to best. `result` gets how far along
// that edge the user is shown: the fraction covered, reduced as the second best edge gets nearer.
// -1 and 0 if the offset points to none.
int32_t World_follow_fraction(Maze *maze, int32_t node, Vec3 offset, const Pos *list, int32_t count,
                              double *result);

// The point at which the user is shown; the camera follows it.
Vec3 World_follow_point(const World *world);
