#pragma once

#include <cstdint>
#include <vector>

#include "support/vec3.h"

// Points sorted into cubic cells, for searching near a position.
struct PointGrid {
  Vec3 low;                   // minimum corner of all cells
  double cells_per_unit;      // at most 1: a cell is at least one world unit wide
  int32_t nx, ny, nz;         // cells along each axis
  std::vector<int32_t> start; // first entry of each cell, x fastest; then the number of entries
  std::vector<int32_t> order; // index of each entry's point, ascending within a cell
  std::vector<Vec3> points;   // position of each entry
};

// Sorts the points. False, with an unusable grid, if there are none or a coordinate is not finite
// or above 1e9 world units, where cells would be inexact.
bool PointGrid_build(PointGrid *grid, const std::vector<Vec3> &points);

// The point nearest to p, the highest index among equals; -1 if its squared distance is above
// `limit_squared`, which must be below 1, or if p is not finite.
int32_t PointGrid_nearest(const PointGrid *grid, Vec3 p, double limit_squared);
