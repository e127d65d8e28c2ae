#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "support/list.h"

// The Voronoi cells of a maze's nodes in the x-y plane: what is nearer to a node than to any other.
// Cells are local: each is cut out of a square that extends three times the node's longest edge to
// each side, by the nodes within five times that edge in space.

// A corner of a cell, and the cell's edge from here to the next corner.
struct VoronoiCorner {
  double x, y;
  int32_t site;   // the node on the other side of the edge; -1 on the border of the square
  int32_t joined; // 1 if that node is a neighbour in the same maze, else 0; -1 on the border
};

// Computes the cells of a maze and attaches them as "voronoi", in place of older ones. With
// `across_levels` a node's neighbours are those of Pos_alledges in the same maze, which leaves out
// neighbours that hold a maze; without it, those of its own table.
void voronoi_build(Maze *maze, int32_t across_levels);

// The same for all mazes of a tree that have no cells. Computes the bounds of all mazes at once.
void voronoi_build_missing(Maze *root, int32_t across_levels);

// The cells of a maze: a GrowList of VoronoiCorner for each node, corners clockwise from above;
// null if they aren't built.
const GrowList *voronoi_cells(const Maze *maze);
