#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "support/list.h"

// The part of the x-y plane that lies nearer to a node than to the other nodes of its maze: its
// cell, cut out of a square by the nodes around it. Cells are local: the square reaches three times
// the node's longest edge to each side, and nodes further than five times that edge, by distance in
// space, don't cut.

// A corner of a cell, and the edge of the cell from here to the next corner.
struct VoronoiCorner {
  double x, y;
  int32_t site;   // the node on the other side of the edge; -1 on the rim of the square
  int32_t joined; // 1 if that node is a neighbour within the maze, else 0; -1 on the rim
};

// Computes the cells of a maze anew, as its attachment "voronoi". With `across_levels` the longest
// edge is looked for in Pos_alledges, which passes over neighbours that hold a maze, and such
// neighbours aren't joined; without it all rows of the node count.
void voronoi_build(Maze *maze, int32_t across_levels);

// The same for all mazes of a tree that have no cells yet. The bounds, which take in all mazes
// below, are computed once for all.
void voronoi_build_missing(Maze *root, int32_t across_levels);

// The cells of a maze, of GrowList of VoronoiCorner, one for each node, corners clockwise from
// above; null if they have not been computed.
const GrowList *voronoi_cells(const Maze *maze);
