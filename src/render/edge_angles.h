#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "support/vec3.h"

// How the flat roads along the edges of a maze meet in its nodes: the corners at which they are
// mitred. It follows from places, half-widths and the tables of neighbours, and is kept as the
// attachment "EdgeAngleRecs" of each maze. Left and right are as seen from the node along the road,
// with z up; all lengths are world units.

// One road's end at a node.
struct EdgeAngleRec {
  int32_t index;         // this road's row in the node's list of Pos_alledges
  int32_t backindex;     // the row in the other end's list that leads back; -1 if none does
  double angle;          // direction towards the other end in the x-y plane, radians; 0 if upright
  double trim1, trim2;   // how far along the road its left and right corners lie
  Vec3 corner1, corner2; // the left and the right corner as offsets from the node; z is 0
};

// The rows of a maze, built if they are missing: pos_max_edges of them for each node, of which only
// the first ones of a plain node are set, as many as Pos_alledges has for it. Owned by the maze.
const EdgeAngleRec *edgeanglerecs(Maze *maze);

// Computes the rows and attaches them, without looking for older ones.
const EdgeAngleRec *edgeanglerecs_build(Maze *maze);

// The direction of d in the x-y plane, of length 1; zero if d is upright.
Vec3 horizontal_direction(Vec3 d);
