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
  std::vector<GridPoint> points; // x outermost, then y, then z from high to low; high indices first
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

// Calls visit(point) for the points of a block, from the highest x and y down, and otherwise in the
// order of `points`.
template <typename Visit>
void PointGrid_each(const PointGrid *grid, const GridBlock &block, const Visit &visit) {
  for (int32_t ix = block.high[0]; ix >= block.low[0]; ix--) {
    for (int32_t iy = block.high[1]; iy >= block.low[1]; iy--) {
      const auto column = static_cast<size_t>((ix * grid->ny + iy) * grid->nz + grid->nz - 1);
      const uint32_t end = grid->start[column - static_cast<size_t>(block.low[2]) + 1];
      for (uint32_t i = grid->start[column - static_cast<size_t>(block.high[2])]; i < end; i++)
        visit(grid->points[i]);
    }
  }
}
