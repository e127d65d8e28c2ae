#pragma once

#include <cstdint>

// A corner of a cell, and the cell's edge from here to the next corner.
struct VoronoiCorner {
  double x, y;
  int32_t site;   // the node on the other side of the edge; -1 on the border of the square
  int32_t joined; // 1 if that node is a neighbour in the same maze, else 0; -1 on the border
};
