#include "support/point_grid.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>

namespace {

constexpr double max_coordinate = 1e9;
constexpr double max_cells_per_point = 8.0; // limits the memory for sparse points

struct Cell {
  int32_t x, y, z;
};

double axis_cells(double extent, double cells_per_unit) {
  return std::floor(extent * cells_per_unit) + 1.0;
}

double all_cells(Vec3 extent, double cells_per_unit) {
  return axis_cells(extent.x, cells_per_unit) * axis_cells(extent.y, cells_per_unit) *
         axis_cells(extent.z, cells_per_unit);
}

Vec3 in_cells(const PointGrid *grid, Vec3 p) {
  return (p - grid->low) * grid->cells_per_unit;
}

int32_t cell_index(const PointGrid *grid, Cell cell) {
  return (cell.z * grid->ny + cell.y) * grid->nx + cell.x;
}

int32_t cell_of(const PointGrid *grid, Vec3 p) {
  const Vec3 at = in_cells(grid, p);
  return cell_index(
      grid, {static_cast<int32_t>(at.x), static_cast<int32_t>(at.y), static_cast<int32_t>(at.z)});
}

// Counting sort by cell; keeps the order of the points in a cell.
void sort_points(PointGrid *grid, const std::vector<Vec3> &points) {
  const size_t cells =
      static_cast<size_t>(grid->nx) * static_cast<size_t>(grid->ny) * static_cast<size_t>(grid->nz);
  grid->start.assign(cells + 1, 0);
  for (const Vec3 p : points)
    grid->start[static_cast<size_t>(cell_of(grid, p)) + 1]++;
  for (size_t c = 0; c < cells; c++)
    grid->start[c + 1] += grid->start[c];
  grid->order.resize(points.size());
  grid->points.resize(points.size());
  std::vector<int32_t> next = grid->start;
  for (size_t i = 0; i < points.size(); i++) {
    const auto entry = static_cast<size_t>(next[static_cast<size_t>(cell_of(grid, points[i]))]++);
    grid->order[entry] = static_cast<int32_t>(i);
    grid->points[entry] = points[i];
  }
}

// The nearest point so far.
struct Best {
  double distance_squared;
  int32_t index;
};

// Searches the adjacent cells `first` to `last` of one row along x.
void search_cells(const PointGrid *grid, int32_t first, int32_t last, Vec3 p, Best *best) {
  const int32_t end = grid->start[static_cast<size_t>(last) + 1];
  for (int32_t entry = grid->start[static_cast<size_t>(first)]; entry < end; entry++) {
    const auto at = static_cast<size_t>(entry);
    const double distance = length_squared(grid->points[at] - p);
    if (distance > best->distance_squared) continue;
    if (distance == best->distance_squared && grid->order[at] < best->index) continue;
    *best = {distance, grid->order[at]};
  }
}

} // namespace

bool PointGrid_build(PointGrid *grid, const std::vector<Vec3> &points) {
  if (points.empty()) return false;
  Vec3 low = points[0];
  Vec3 high = points[0];
  for (const Vec3 p : points) {
    if (!(std::abs(p.x) <= max_coordinate && std::abs(p.y) <= max_coordinate &&
          std::abs(p.z) <= max_coordinate))
      return false;
    low = min_components(low, p);
    high = max_components(high, p);
  }
  const Vec3 extent = high - low;
  const double max_cells = max_cells_per_point * static_cast<double>(points.size());
  grid->low = low;
  grid->cells_per_unit = 1.0;
  while (all_cells(extent, grid->cells_per_unit) > max_cells)
    grid->cells_per_unit *= 0.75;
  grid->nx = static_cast<int32_t>(axis_cells(extent.x, grid->cells_per_unit));
  grid->ny = static_cast<int32_t>(axis_cells(extent.y, grid->cells_per_unit));
  grid->nz = static_cast<int32_t>(axis_cells(extent.z, grid->cells_per_unit));
  sort_points(grid, points);
  return true;
}

int32_t PointGrid_nearest(const PointGrid *grid, Vec3 p, double limit_squared) {
  assert(limit_squared < 1.0);
  const Vec3 at = in_cells(grid, p);
  const bool near = at.x > -1.0 && at.x < grid->nx + 1.0 && at.y > -1.0 && at.y < grid->ny + 1.0 &&
                    at.z > -1.0 && at.z < grid->nz + 1.0;
  if (!near) return -1;
  const Cell middle = {static_cast<int32_t>(std::floor(at.x)),
                       static_cast<int32_t>(std::floor(at.y)),
                       static_cast<int32_t>(std::floor(at.z))};
  const Cell low = {std::max(middle.x - 1, 0), std::max(middle.y - 1, 0),
                    std::max(middle.z - 1, 0)};
  const Cell high = {std::min(middle.x + 1, grid->nx - 1), std::min(middle.y + 1, grid->ny - 1),
                     std::min(middle.z + 1, grid->nz - 1)};
  Best best = {limit_squared, -1};
  for (int32_t z = low.z; z <= high.z; z++)
    for (int32_t y = low.y; y <= high.y; y++)
      search_cells(grid, cell_index(grid, {low.x, y, z}), cell_index(grid, {high.x, y, z}), p,
                   &best);
  return best.index;
}
