#pragma once

#include <cstddef>
#include <vector>

#include "support/point_grid.h"

// Finds the points that can cut a cell, leaving out those behind nearer ones.

struct VoronoiCandidates {
  std::vector<const GridPoint *> points; // the first `count`, in the order of the grid
  size_t count = 0;
};

// Lists the points of a grid within `query` of a place that can cut its cell. Leaves out points
// with the same x and y as the place.
void voronoi_candidates(VoronoiCandidates *found, const PointGrid *grid, Vec3 place, double query);
