#include "maker/convex_hull.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr size_t core_points = 8;

// Above 0 if c is to the left of the line from a to b.
double turn(PlanePoint a, PlanePoint b, PlanePoint c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// Appends a side of the hull without its end, by Andrew's monotone chain.
template <typename Iterator>
void add_side(Iterator begin, Iterator end, std::vector<PlanePoint> *vertices) {
  const size_t first = vertices->size();
  for (; begin != end; ++begin) {
    while (vertices->size() >= first + 2 &&
           turn(vertices->end()[-2], vertices->back(), *begin) <= 0)
      vertices->pop_back();
    vertices->push_back(*begin);
  }
  if (vertices->size() > first + 1) vertices->pop_back(); // the next side begins there
}

bool is_inside(const std::vector<PlanePoint> &polygon, PlanePoint point) {
  for (size_t i = 0; i < polygon.size(); i++)
    if (turn(polygon[i], polygon[(i + 1) % polygon.size()], point) <= 0) return false;
  return !polygon.empty();
}

std::vector<PlanePoint> core_of(const std::vector<PlanePoint> &vertices) {
  std::vector<PlanePoint> core;
  for (size_t i = 0; i < vertices.size(); i += vertices.size() / core_points + 1)
    core.push_back(vertices[i]);
  return core;
}

} // namespace

void hull_add(ConvexHull *hull, PlanePoint point) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y)) return;
  if (is_inside(hull->core, point)) return;
  hull->points.push_back(point);
  if (hull->points.size() < hull->limit) return;
  hull_reduce(hull);
  hull->core = core_of(hull->points);
  hull->limit = std::max(hull->limit, 2 * hull->points.size());
}

void hull_reduce(ConvexHull *hull) {
  std::vector<PlanePoint> &points = hull->points;
  std::sort(points.begin(), points.end(),
            [](PlanePoint a, PlanePoint b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
  std::vector<PlanePoint> vertices;
  add_side(points.begin(), points.end(), &vertices);   // below
  add_side(points.rbegin(), points.rend(), &vertices); // above
  points = std::move(vertices);
}
