#include "render/voronoi_candidates.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "render/voronoi_cut.h"

namespace {

constexpr double max_finite_query = 1e100;           // squares of larger lengths may be infinite
constexpr double four_with_slack = 4.0 * (1 + 1e-6); // for rounding
constexpr size_t initial_room = 64;                  // points

size_t number(bool condition) {
  return condition ? 1 : 0;
}

// The cell of a place and those around it.
GridBlock adjacent_cells(const PointGrid *grid, Vec3 place) {
  GridBlock block = PointGrid_block(grid, place, {0, 0, 0});
  const int32_t size[3] = {grid->nx, grid->ny, grid->nz};
  for (int axis = 0; axis < 3; axis++) {
    block.low[axis] = std::max(block.low[axis] - 1, 0);
    block.high[axis] = std::min(block.high[axis] + 1, size[axis] - 1);
  }
  return block;
}

constexpr size_t sectors = 8; // of directions, 45 degrees each, counterclockwise from +x

size_t sector_of(double x, double y) {
  constexpr uint8_t by_signs[sectors] = {0, 1, 3, 2, 7, 6, 4, 5};
  return by_signs[(y < 0 ? 4 : 0) | (x < 0 ? 2 : 0) | (std::fabs(x) < std::fabs(y) ? 1 : 0)];
}

// A point of the plane as seen from a node.
struct Offset {
  double x, y;
  double squared; // length
};

// The nearest of some points in each sector. Points on the node itself have no direction.
struct Ring {
  Offset nearest[sectors];
};

Ring nearest_by_sector(const PointGrid *grid, Vec3 place, double query_squared) {
  Ring ring;
  std::fill_n(ring.nearest, sectors, Offset{0, 0, query_squared});
  PointGrid_each(grid, adjacent_cells(grid, place), [&](const GridPoint &point) {
    const Vec3 way = point.place - place;
    const double flat = way.x * way.x + way.y * way.y;
    if (!(flat > 0 && flat + way.z * way.z <= query_squared)) return;
    Offset &nearest = ring.nearest[sector_of(way.x, way.y)];
    if (flat < nearest.squared) nearest = {way.x, way.y, flat};
  });
  return ring;
}

// A bisector as a pole: the line of points whose dot product with it is 1.
struct Pole {
  double x, y;
};

double cross(Pole a, Pole b, Pole c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

size_t nearest_sector(const Ring &ring) {
  size_t nearest = 0;
  for (size_t s = 1; s < sectors; s++)
    if (ring.nearest[s].squared < ring.nearest[nearest].squared) nearest = s;
  return nearest;
}

// Drops the last poles that are not corners of the convex hull if `after` comes next.
size_t drop_inner(const Pole *poles, size_t count, const Pole &after) {
  while (count > 1 && cross(poles[count - 2], poles[count - 1], after) <= 0)
    count--;
  return count;
}

// The poles of the bisectors that bound the cell of a ring, by angle: the corners of their convex
// hull, since polarity maps a polygon around the origin to the hull of the poles of its edges. The
// nearest point is one of them.
size_t bounding_poles(const Ring &ring, Pole *poles) {
  const size_t first = nearest_sector(ring);
  size_t count = 0;
  for (size_t s = first; s < first + sectors; s++) {
    const Offset &offset = ring.nearest[s % sectors];
    if (offset.x == 0 && offset.y == 0) continue;
    const double scale = 1 / (offset.squared / 2 + voronoi_tolerance);
    const Pole pole = {offset.x * scale, offset.y * scale};
    count = drop_inner(poles, count, pole);
    poles[count++] = pole;
  }
  return drop_inner(poles, count, poles[0]);
}

// Squared distance, in the plane, beyond which no point can cut the cell: twice the radius of the
// cell as cut by near points alone, since a bisector lies halfway. Only points within the query
// count.
double cut_limit(const PointGrid *grid, Vec3 place, double query_squared) {
  Pole poles[sectors];
  const size_t count = bounding_poles(nearest_by_sector(grid, place, query_squared), poles);
  if (count < 3) return query_squared;
  double reach = 0;
  Pole before = poles[count - 1];
  for (size_t k = 0; k < count; k++) {
    const Pole pole = poles[k];
    const double area = before.x * pole.y - before.y * pole.x;
    if (!(area > 0)) return query_squared; // the cell is open between the two
    const double x = pole.x - before.x, y = pole.y - before.y;
    reach = std::max(reach, (x * x + y * y) / (area * area));
    before = pole;
  }
  return std::min(four_with_slack * reach, query_squared);
}

} // namespace

// Among points on one circle around a corner, the order decides which keep an edge of zero length,
// so it is that of the grid. Cutting with all points of the query instead would empty some cells of
// nested mazes, and move corners where edges are below about 0.01 units.
void voronoi_candidates(VoronoiCandidates *found, const PointGrid *grid, Vec3 place, double query) {
  double limit = query * query;
  if (query < max_finite_query) limit = cut_limit(grid, place, limit);
  const double near = std::sqrt(limit);
  if (found->points.empty()) found->points.resize(initial_room);
  found->count = 0;
  PointGrid_each(grid, PointGrid_block(grid, place, {near, near, query}),
                 [&](const GridPoint &point) {
                   const Vec3 way = point.place - place;
                   const double flat = way.x * way.x + way.y * way.y;
                   if (found->count == found->points.size()) found->points.resize(2 * found->count);
                   found->points[found->count] = &point;
                   // A branch would be mispredicted.
                   found->count += number(flat <= limit) & number(flat != 0) &
                                   number(flat + way.z * way.z <= query * query);
                 });
}
