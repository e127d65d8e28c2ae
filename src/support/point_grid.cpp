#include "support/point_grid.h"

#include <algorithm>
#include <cmath>

namespace {

struct Size {
  int64_t x, y, z;
};

// An axis's share of k cells along the longest axis. Huge extents overflow to infinity, hence the
// limit.
int64_t axis_cells(double k, double extent, double longest) {
  return std::max<int64_t>(static_cast<int64_t>(std::min(k * extent / longest, k)), 1);
}

// The smallest grid in the proportions of the box that has a cell for each point.
Size grid_size(Vec3 extent, size_t count) {
  const double longest = std::max({extent.x, extent.y, extent.z});
  if (count < 2 || !is_finite(extent) || !(longest > 0)) return {1, 1, 1};
  for (double k = 1;; k++) {
    const Size size = {axis_cells(k, extent.x, longest), axis_cells(k, extent.y, longest),
                       axis_cells(k, extent.z, longest)};
    if (static_cast<size_t>(size.x * size.y * size.z) >= count) return size;
  }
}

int32_t axis_cell(double p, double low, double high, int32_t n) {
  if (!(high > low)) return 0;
  const double cell = (p - low) / (high - low) * n;
  if (!(cell > 0)) return 0;
  return cell < n ? static_cast<int32_t>(cell) : n - 1;
}

// The row of a place's cell in `start`.
size_t cell_row(const PointGrid *grid, Vec3 p) {
  const int32_t ix = axis_cell(p.x, grid->low.x, grid->high.x, grid->nx);
  const int32_t iy = axis_cell(p.y, grid->low.y, grid->high.y, grid->ny);
  const int32_t iz = axis_cell(p.z, grid->low.z, grid->high.z, grid->nz);
  return PointGrid_row(grid, ix, iy, iz);
}

// A counting sort.
void sort_points(PointGrid *grid, const std::vector<Vec3> &points) {
  std::vector<size_t> rows(points.size());
  grid->start.assign(static_cast<size_t>(grid->nx * grid->ny * grid->nz) + 1, 0);
  for (size_t i = 0; i < points.size(); i++) {
    rows[i] = cell_row(grid, points[i]);
    grid->start[rows[i] + 1]++;
  }
  for (size_t row = 1; row < grid->start.size(); row++)
    grid->start[row] += grid->start[row - 1];
  grid->points.resize(points.size());
  std::vector<uint32_t> next = grid->start;
  for (size_t i = points.size(); i-- > 0;)
    grid->points[next[rows[i]]++] = {points[i], static_cast<int32_t>(i)};
}

// Whether a place is farther than `reach` from the box.
bool is_beyond(const PointGrid *grid, Vec3 p, double reach) {
  const Vec3 low = grid->low, high = grid->high;
  return p.x < low.x - reach || p.y < low.y - reach || p.z < low.z - reach ||
         p.x > high.x + reach || p.y > high.y + reach || p.z > high.z + reach;
}

} // namespace

void PointGrid_build_in(PointGrid *grid, const std::vector<Vec3> &points, Vec3 low, Vec3 high) {
  const Size size = grid_size(high - low, points.size());
  grid->low = low;
  grid->high = high;
  grid->nx = static_cast<int32_t>(size.x);
  grid->ny = static_cast<int32_t>(size.y);
  grid->nz = static_cast<int32_t>(size.z);
  sort_points(grid, points);
}

void PointGrid_build(PointGrid *grid, const std::vector<Vec3> &points) {
  Vec3 low = {}, high = {};
  if (!points.empty()) low = high = points[0];
  for (const Vec3 p : points) {
    low = min_components(low, p);
    high = max_components(high, p);
  }
  PointGrid_build_in(grid, points, low, high);
}

GridBlock PointGrid_block(const PointGrid *grid, Vec3 place, Vec3 reach) {
  const Vec3 first = place - reach, last = place + reach;
  const Vec3 low = grid->low, high = grid->high;
  return {{axis_cell(first.x, low.x, high.x, grid->nx), axis_cell(first.y, low.y, high.y, grid->ny),
           axis_cell(first.z, low.z, high.z, grid->nz)},
          {axis_cell(last.x, low.x, high.x, grid->nx), axis_cell(last.y, low.y, high.y, grid->ny),
           axis_cell(last.z, low.z, high.z, grid->nz)}};
}

int32_t PointGrid_nearest(const PointGrid *grid, Vec3 place, double limit_squared) {
  const double reach = std::sqrt(limit_squared) * (1 + 1e-9); // with slack for rounding
  if (is_beyond(grid, place, reach)) return -1;
  double best_distance = limit_squared;
  int32_t best = -1;
  const GridBlock block = PointGrid_block(grid, place, {reach, reach, reach});
  PointGrid_each(grid, block, [&](const GridPoint &point) {
    const double distance = length_squared(point.place - place);
    if (!(distance <= best_distance)) return; // a NaN is near nothing
    if (distance == best_distance && point.index < best) return;
    best_distance = distance;
    best = point.index;
  });
  return best;
}
