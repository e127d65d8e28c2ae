#pragma once

#include "world/world.h"

// The user's motion along the graph. Doors need no case of their own: a step to another level is a
// step along an entry of Pos_alledges like any other.

// Pushes the user by mx along the screen's right and my along its up, in world units, and takes at
// most one step: along the edge that the push points to best, once the push has passed its end.
// Where no edge goes, the push is lost.
void World_move(World *world, double mx, double my);

// Which of `count` neighbours the offset points to best, and in `result` how far along that edge
// the user shows: the true part of the way, less the nearer the push is to the second best edge.
// -1 and 0 if it points to none.
int32_t World_follow_fraction(Maze *maze, int32_t node, Vec3 offset, const Pos *list, int32_t count,
                              double *result);

// The point that stands for the user in this frame; the camera follows it.
Vec3 World_follow_point(const World *world);
