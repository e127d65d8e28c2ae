#include "maker/outline.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr size_t core_points = 8;

// Above 0 if c is to the left of the line from a to b.
double turn(PlanePoint a, PlanePoint b, PlanePoint c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// Appends a side of the outline without its end, by Andrew's monotone chain.
template <typename Iterator>
void add_side(Iterator begin, Iterator end, std::vector<PlanePoint> *corners) {
  const size_t first = corners->size();
  for (; begin != end; ++begin) {
    while (corners->size() >= first + 2 && turn(corners->end()[-2], corners->back(), *begin) <= 0)
      corners->pop_back();
    corners->push_back(*begin);
  }
  if (corners->size() > first + 1) corners->pop_back(); // the next side begins there
}

bool is_inside(const std::vector<PlanePoint> &polygon, PlanePoint point) {
  for (size_t i = 0; i < polygon.size(); i++)
    if (turn(polygon[i], polygon[(i + 1) % polygon.size()], point) <= 0) return false;
  return !polygon.empty();
}

std::vector<PlanePoint> core_of(const std::vector<PlanePoint> &corners) {
  std::vector<PlanePoint> core;
  for (size_t i = 0; i < corners.size(); i += corners.size() / core_points + 1)
    core.push_back(corners[i]);
  return core;
}

} // namespace

void outline_add(Outline *outline, PlanePoint point) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y)) return;
  if (is_inside(outline->core, point)) return;
  outline->points.push_back(point);
  if (outline->points.size() < outline->limit) return;
  outline_reduce(outline);
  outline->core = core_of(outline->points);
  outline->limit = std::max(outline->limit, 2 * outline->points.size());
}

void outline_reduce(Outline *outline) {
  std::vector<PlanePoint> &points = outline->points;
  std::sort(points.begin(), points.end(),
            [](PlanePoint a, PlanePoint b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
  std::vector<PlanePoint> corners;
  add_side(points.begin(), points.end(), &corners);   // below
  add_side(points.rbegin(), points.rend(), &corners); // above
  points = std::move(corners);
}
