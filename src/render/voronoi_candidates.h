#pragma once

#include <cstddef>
#include <vector>

#include "support/point_grid.h"

// The points that can cut a cell, without those that others keep away from it.

struct VoronoiCandidates {
  std::vector<const GridPoint *> points; // the first `count`, in the order of the grid
  size_t count = 0;
};

// Lists the points of a grid within `query` of a place that can cut its cell. Not those with the
// same x and y.
void voronoi_candidates(VoronoiCandidates *found, const PointGrid *grid, Vec3 place, double query);
