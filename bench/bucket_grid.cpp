#include "bucket_grid.h"

#include <algorithm>
#include <cassert>

namespace {

struct Size {
  int64_t x, y, z;
};

// An axis's share of k cells. Huge extents overflow to infinity, hence the limit.
int64_t axis_cells(double k, double extent, double longest) {
  return std::max<int64_t>(static_cast<int64_t>(std::min(k * extent / longest, k)), 1);
}

// The smallest grid in the proportions of the box that has a cell for each point.
Size grid_size(Vec3 extent, int32_t count) {
  const double longest = std::max({extent.x, extent.y, extent.z});
  if (count < 2 || !is_finite(extent) || !(longest > 0)) return {1, 1, 1};
  for (double k = 1;; k++) {
    const Size size = {axis_cells(k, extent.x, longest), axis_cells(k, extent.y, longest),
                       axis_cells(k, extent.z, longest)};
    if (size.x * size.y * size.z >= count) return size;
  }
}

int32_t axis_cell(double p, double min, double max, int32_t n) {
  if (!(max > min)) return 0;
  const double cell = (p - min) / (max - min) * n;
  if (!(cell > 0)) return 0;
  return cell < n ? static_cast<int32_t>(cell) : n - 1;
}

uint32_t bucket_row(const BucketGrid *grid, int32_t ix, int32_t iy, int32_t iz) {
  assert(ix >= 0 && ix < grid->nx && iy >= 0 && iy < grid->ny && iz >= 0 && iz < grid->nz);
  return static_cast<uint32_t>((ix * grid->ny + iy) * grid->nz + iz);
}

void append_near(GrowList *result, const GrowList &bucket, Vec3 position, double radius_squared) {
  for (uint32_t row = bucket.count; row-- > 0;) {
    const BucketPoint &point = rows<BucketPoint>(bucket)[row];
    const double distance = length_squared(Vec3{point.x, point.y, point.z} - position);
    if (distance <= radius_squared) GrowList_append(result, &point.index);
  }
}

} // namespace

void bucket_grid_new(BucketGrid *grid, Vec3 min, Vec3 max, int32_t count) {
  const Size size = grid_size(max - min, count);
  grid->nx = static_cast<int32_t>(size.x);
  grid->ny = static_cast<int32_t>(size.y);
  grid->nz = static_cast<int32_t>(size.z);
  grid->min = min;
  grid->max = max;
  GrowList_init(&grid->buckets, sizeof(GrowList));
  const auto cells = static_cast<uint32_t>(size.x * size.y * size.z);
  GrowList_reserve(&grid->buckets, cells);
  for (uint32_t cell = 0; cell < cells; cell++) {
    GrowList bucket;
    GrowList_init(&bucket, sizeof(BucketPoint));
    GrowList_append(&grid->buckets, &bucket);
  }
}

void bucket_grid_free(BucketGrid *grid) {
  for (uint32_t row = grid->buckets.count; row-- > 0;)
    GrowList_free(&rows<GrowList>(grid->buckets)[row]);
  GrowList_free(&grid->buckets);
}

void bucket_grid_add(BucketGrid *grid, Vec3 position, int32_t index) {
  int32_t ix, iy, iz;
  bucket_grid_cell(grid, position, &ix, &iy, &iz);
  const BucketPoint point = {position.x, position.y, position.z, index};
  GrowList_append(&rows<GrowList>(grid->buckets)[bucket_row(grid, ix, iy, iz)], &point);
}

void bucket_grid_cell(const BucketGrid *grid, Vec3 position, int32_t *ix, int32_t *iy,
                      int32_t *iz) {
  *ix = axis_cell(position.x, grid->min.x, grid->max.x, grid->nx);
  *iy = axis_cell(position.y, grid->min.y, grid->max.y, grid->ny);
  *iz = axis_cell(position.z, grid->min.z, grid->max.z, grid->nz);
}

const GrowList *bucket_grid_bucket(const BucketGrid *grid, int32_t ix, int32_t iy, int32_t iz) {
  return &rows<GrowList>(grid->buckets)[bucket_row(grid, ix, iy, iz)];
}

void bucket_grid_ball(GrowList *result, const BucketGrid *grid, Vec3 position, double radius) {
  const Vec3 reach = {radius, radius, radius};
  int32_t low[3], high[3];
  bucket_grid_cell(grid, position - reach, &low[0], &low[1], &low[2]);
  bucket_grid_cell(grid, position + reach, &high[0], &high[1], &high[2]);
  GrowList_init(result, sizeof(int32_t));
  for (int32_t ix = low[0]; ix <= high[0]; ix++)
    for (int32_t iy = low[1]; iy <= high[1]; iy++)
      for (int32_t iz = low[2]; iz <= high[2]; iz++)
        append_near(result, *bucket_grid_bucket(grid, ix, iy, iz), position, radius * radius);
}
