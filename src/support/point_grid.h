#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "support/vec3.h"

// Points sorted into the cells of a uniform grid, for searches of what is near a place. Nothing
// needs to be finite.

struct GridPoint {
  Vec3 place;
  int32_t index; // in the list from which the grid was built
};

struct PointGrid {
  Vec3 low, high;                // the box; points outside it are in the nearest cell
  int32_t nx, ny, nz;            // cells along each axis
  std::vector<uint32_t> start;   // first point of each cell, then the point count
  std::vector<GridPoint> points; // by x, then y and z from high to low; high indices first
};

// A box of cells; both ends are included.
struct GridBlock {
  int32_t low[3], high[3];
};

// Sorts points into about cubic cells of a box, at least as many cells as points. A box that has no
// extent or isn't finite gets a single cell.
void PointGrid_build_in(PointGrid *grid, const std::vector<Vec3> &points, Vec3 low, Vec3 high);

// The same in the points' own bounding box.
void PointGrid_build(PointGrid *grid, const std::vector<Vec3> &points);

// The cells that contain all that is within `reach` of a place along each axis.
GridBlock PointGrid_block(const PointGrid *grid, Vec3 place, Vec3 reach);

// The point with the smallest squared distance to a place, the highest index among equals, or -1 if
// that is above `limit_squared`. The points must be in the grid's box.
int32_t PointGrid_nearest(const PointGrid *grid, Vec3 place, double limit_squared);

// The row of a cell in `start`.
inline size_t PointGrid_row(const PointGrid *grid, int32_t ix, int32_t iy, int32_t iz) {
  return static_cast<size_t>(((ix + 1) * grid->ny - 1 - iy) * grid->nz + grid->nz - 1 - iz);
}

// Calls visit(point) for the points of a block, from the highest x down, and otherwise in the order
// of `points`.
template <typename Visit>
void PointGrid_each(const PointGrid *grid, const GridBlock &block, const Visit &visit) {
  const bool whole_columns = block.low[2] == 0 && block.high[2] == grid->nz - 1;
  const int32_t columns = whole_columns ? block.high[1] - block.low[1] + 1 : 1; // in one run
  for (int32_t ix = block.high[0]; ix >= block.low[0]; ix--) {
    for (int32_t iy = block.high[1]; iy >= block.low[1]; iy -= columns) {
      const size_t first = PointGrid_row(grid, ix, iy, block.high[2]);
      const size_t last = PointGrid_row(grid, ix, iy - columns + 1, block.low[2]);
      for (uint32_t i = grid->start[first]; i < grid->start[last + 1]; i++)
        visit(grid->points[i]);
    }
  }
}
