#pragma once

#include <cstdint>

#include "support/list.h"
#include "support/vec3.h"

// Points in the buckets of a uniform grid, for the reference implementation of the Voronoi cells.
// The order of a query's results is part of its contract, since it decides the order of cuts.

struct BucketPoint {
  double x, y, z;
  int32_t index; // the caller's index of the point
};

struct BucketGrid {
  int32_t nx, ny, nz; // cells along each axis
  GrowList buckets;   // of GrowList of BucketPoint; z innermost, then y
  Vec3 min, max;      // the box; points outside it are in the nearest cell
};

// Sets up an empty grid for `count` points in the box, with about cubic cells and at least as many
// cells as points. A box that has no extent or isn't finite gets a single cell.
void bucket_grid_new(BucketGrid *grid, Vec3 min, Vec3 max, int32_t count);

void bucket_grid_free(BucketGrid *grid);

void bucket_grid_add(BucketGrid *grid, Vec3 position, int32_t index);

// The cell of a place; the nearest one outside the box, the first for a NaN.
void bucket_grid_cell(const BucketGrid *grid, Vec3 position, int32_t *ix, int32_t *iy, int32_t *iz);

// The points of a cell, of BucketPoint, in the order in which they were added.
const GrowList *bucket_grid_bucket(const BucketGrid *grid, int32_t ix, int32_t iy, int32_t iz);

// Makes `result` the list of the indices, of int32_t, of all points within `radius`: cell after
// cell, x outermost, then y, then z, and the last point of a cell first. The caller frees it.
void bucket_grid_ball(GrowList *result, const BucketGrid *grid, Vec3 position, double radius);
