#pragma once

#include <cstdint>
#include <vector>

#include "support/vec3.h"

// Points sorted into cubic cells, for searches that look at what is near only.
struct PointGrid {
  Vec3 low;                   // the lowest corner of all cells
  double cells_per_unit;      // at most 1: a cell's side is at least a world unit
  int32_t nx, ny, nz;         // cells along each axis
  std::vector<int32_t> start; // for each cell, x innermost, its first entry; then the entry count
  std::vector<int32_t> order; // entries: the points' indices, rising within each cell
  std::vector<Vec3> points;   // entries: their places
};

// Sorts the points. False, with the grid unusable, if there are none or one is too far out for
// exact cells: further than 1e9 world units from the origin, or not finite.
bool PointGrid_build(PointGrid *grid, const std::vector<Vec3> &points);

// The point with the smallest squared distance to p, the highest index among equals, or -1 if that
// is above `limit_squared`, which must be below 1. A place that isn't finite has nothing near.
int32_t PointGrid_nearest(const PointGrid *grid, Vec3 p, double limit_squared);
