#pragma once

#include <cstddef>
#include <vector>

#include "render/voronoi_corner.h"
#include "support/point_grid.h"

// Cuts a cell out of a square, bisector by bisector.

// A bisector cuts off a corner whose distance beyond it, times the distance of the two nodes, is at
// least this.
constexpr double voronoi_tolerance = 1e-6;

struct CutCell {
  std::vector<VoronoiCorner> corners; // the first `count`, clockwise; `joined` isn't set
  std::vector<VoronoiCorner> next;    // a buffer for what a cut leaves
  size_t count = 0;
};

// Starts with the square that extends `half` world units from a place to each side.
void cut_cell_start(CutCell *cell, Vec3 place, double half);

// Cuts off what is nearer to a point than to the place, in the x-y plane. False if nothing is. An
// empty cell can't be cut.
bool cut_cell(CutCell *cell, Vec3 place, const GridPoint &point);
