#include "render/voronoi_cut.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr size_t initial_room = 16;  // corners
constexpr double max_beyond = 0.001; // of the length of an edge

struct Bisector {
  double mx, my; // the midpoint of the two nodes
  double dx, dy; // from this node to the other
  int32_t site;
};

Bisector bisector_towards(Vec3 place, const GridPoint &point) {
  return {(place.x + point.place.x) / 2, (place.y + point.place.y) / 2, point.place.x - place.x,
          point.place.y - place.y, point.index};
}

double value_at(const VoronoiCorner &corner, const Bisector &line) {
  return (corner.x - line.mx) * line.dx + (corner.y - line.my) * line.dy;
}

// Where the border of a cell crosses a bisector.
struct Crossings {
  size_t runs;  // of consecutive corners that are outside; 0 if all are or none is
  size_t leave; // the corner before the first run
  size_t enter; // the last corner of the first run
  bool first_outside;
};

Crossings find_crossings(const CutCell &cell, const Bisector &line) {
  Crossings found = {0, 0, 0, value_at(cell.corners[0], line) >= voronoi_tolerance};
  bool after = found.first_outside;
  for (size_t k = cell.count; k-- > 0;) {
    const bool here = value_at(cell.corners[k], line) >= voronoi_tolerance;
    if (after && !here) {
      found.leave = k;
      found.runs++;
    }
    if (!after && here) found.enter = k;
    after = here;
  }
  return found;
}

// The point on the edge that starts at corner k where the value is `level`. It is a little beyond
// the edge if the inner corner's value is between the level and the tolerance. It could be at any
// distance if the outer one's is hardly above, so that is limited. GCC does not inline it by itself
// then, which would cost a tenth of the time.
[[gnu::always_inline]] inline VoronoiCorner
crossing(const CutCell &cell, size_t k, const Bisector &line, double level, int32_t site) {
  const VoronoiCorner &from = cell.corners[k];
  const VoronoiCorner &to = cell.corners[k + 1 < cell.count ? k + 1 : 0];
  const double value = value_at(from, line);
  double t = (value - level) / (value - value_at(to, line));
  if (std::fabs(t - 0.5) > 0.5 + max_beyond) [[unlikely]]
    t = std::clamp(t, -max_beyond, 1 + max_beyond);
  return {from.x + t * (to.x - from.x), from.y + t * (to.y - from.y), site, 0};
}

void use_next(CutCell *cell, size_t count) {
  std::swap(cell->corners, cell->next);
  cell->count = count;
}

// Replaces the corners after `leave`, the last one inside, up to `enter`, the last one outside, by
// one edge.
void replace_outside(CutCell *cell, size_t leave, size_t enter, const Bisector &line) {
  size_t count = 0;
  for (size_t k = enter; k != leave;) {
    k = k + 1 < cell->count ? k + 1 : 0;
    cell->next[count++] = cell->corners[k];
  }
  const VoronoiCorner &left = cell->corners[enter];
  cell->next[count++] = crossing(*cell, leave, line, 0, line.site);
  cell->next[count++] = crossing(*cell, enter, line, 0, left.site);
  use_next(cell, count);
}

// Cuts corner by corner, at the tolerance instead of the bisector. Each crossing then lies on its
// edge, so the cell only shrinks, however many crossings there are.
void cut_corners(CutCell *cell, const Bisector &line) {
  size_t count = 0;
  for (size_t k = 0; k < cell->count; k++) {
    const VoronoiCorner &corner = cell->corners[k];
    const VoronoiCorner &after = cell->corners[k + 1 < cell->count ? k + 1 : 0];
    const bool inside = value_at(corner, line) < voronoi_tolerance;
    const bool next_inside = value_at(after, line) < voronoi_tolerance;
    if (inside) cell->next[count++] = corner;
    if (inside && !next_inside)
      cell->next[count++] = crossing(*cell, k, line, voronoi_tolerance, line.site);
    if (!inside && next_inside)
      cell->next[count++] = crossing(*cell, k, line, voronoi_tolerance, corner.site);
  }
  use_next(cell, count);
}

// Makes room for the corners of a cut, at most one more for each corner.
void make_room(CutCell *cell) {
  if (2 * cell->count <= cell->next.size()) return;
  cell->corners.resize(4 * cell->count);
  cell->next.resize(4 * cell->count);
}

} // namespace

void cut_cell_start(CutCell *cell, Vec3 place, double half) {
  if (cell->corners.empty()) {
    cell->corners.resize(initial_room);
    cell->next.resize(initial_room);
  }
  const double x = place.x, y = place.y;
  cell->corners[0] = {x - half, y - half, -1, 0};
  cell->corners[1] = {x - half, y + half, -1, 0};
  cell->corners[2] = {x + half, y + half, -1, 0};
  cell->corners[3] = {x + half, y - half, -1, 0};
  cell->count = 4;
}

// Nested mazes are off their lattice by about 3e-8, so two runs of corners can be outside. Cutting
// out a single run would then keep only a sliver between the two, which the next bisector would
// remove.
bool cut_cell(CutCell *cell, Vec3 place, const GridPoint &point) {
  const Bisector line = bisector_towards(place, point);
  const Crossings found = find_crossings(*cell, line);
  if (found.runs == 0 && !found.first_outside) return false;
  make_room(cell);
  if (found.runs > 1)
    cut_corners(cell, line);
  else if (found.runs == 1)
    replace_outside(cell, found.leave, found.enter, line);
  else
    cell->count = 0;
  return true;
}
