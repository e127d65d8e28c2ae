#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "support/vec3.h"

// The mitred corners where the flat roads along the edges of a maze meet in its nodes. They depend
// on positions, half-widths and the tables of neighbours, and are kept as the attachment
// "EdgeAngleRecs" of each maze. Left and right are as seen from the node along the road, with z up.
// Lengths are world units.

// One end of a road.
struct EdgeAngleRec {
  int32_t index;         // of this road in the node's list of Pos_alledges
  int32_t backindex;     // of the same road in the list of the other end; -1 if it isn't there
  double angle;          // direction to the other end in the x-y plane, radians; 0 if vertical
  double trim1, trim2;   // distance along the road to its left and its right corner
  Vec3 corner1, corner2; // the left and the right corner, as offsets from the node; z is 0
};

// No corner is farther than this from its node, in half-widths.
inline constexpr double edge_angles_max_reach = 201;

// The rows of a maze, built if they are missing: pos_max_edges for each node. Only those of plain
// nodes are set, as many as Pos_alledges lists. Owned by the maze.
const EdgeAngleRec *edgeanglerecs(Maze *maze);

// Computes the rows and attaches them, without looking for older ones.
const EdgeAngleRec *edgeanglerecs_build(Maze *maze);

// Attaches rows, if there are none, without computing them. Reading one later gives what it would
// give now: Attachment_before_move computes the rows whose other ends will move.
void edge_angles_defer(Maze *maze);

// The rows of one plain node.
const EdgeAngleRec *edge_angles_at(Pos pos);

// The direction of d in the x-y plane, of length 1; zero if d is vertical.
Vec3 horizontal_direction(Vec3 d);
