#include "render/voronoi_geometry.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "generate/transform.h"
#include "maze/attachment.h"
#include "maze/pos.h"
#include "maze/walk.h"
#include "render/bucket_grid.h"

namespace {

constexpr const char *cells_name = "voronoi";
constexpr double square_reach = 3.0; // half the square's side, in longest edges
constexpr double query_reach = 5.0;
constexpr double outside = 1e-6;  // a value along the bisector's normal, not a distance
constexpr double immense = 1e100; // products of such lengths may not be finite
constexpr double four_times = 4.0 * (1 + 1e-6); // with room for rounding

// The cell at work, with room that is kept from node to node.
struct Cut {
  std::vector<VoronoiCorner> corners;
  std::vector<VoronoiCorner> next;
  std::vector<double> value; // of each corner against the bisector
};

struct Bisector {
  double mx, my; // halfway to the other node
  double dx, dy; // towards it
  int32_t site;
  int32_t joined;
};

// The node whose cell is cut.
struct Centre {
  Vec3 place;
  int32_t node;
  int32_t neighbours;
  int32_t neighbour[pos_max_edges]; // in the same maze
  double longest;                   // edge to one of them
};

// Indices of cells of the grid, both ends included.
struct Block {
  int32_t low[3];
  int32_t high[3];
};

void start_square(Cut *cut, const Centre &centre) {
  const double h = square_reach * centre.longest;
  const double x = centre.place.x;
  const double y = centre.place.y;
  cut->corners = {{x - h, y - h, -1, -1},
                  {x - h, y + h, -1, -1},
                  {x + h, y + h, -1, -1},
                  {x + h, y - h, -1, -1}};
}

Bisector bisector_towards(Vec3 place, const BucketPoint &point) {
  return {(place.x + point.x) / 2,
          (place.y + point.y) / 2,
          point.x - place.x,
          point.y - place.y,
          point.index,
          0};
}

// Whether any corner is outside; notes their values.
bool measure(Cut *cut, const Bisector &line) {
  const size_t count = cut->corners.size();
  if (cut->value.size() < count) cut->value.resize(count);
  const VoronoiCorner *corners = cut->corners.data();
  double *value = cut->value.data();
  bool any_outside = false;
  for (size_t k = 0; k < count; k++) {
    value[k] = (corners[k].x - line.mx) * line.dx + (corners[k].y - line.my) * line.dy;
    any_outside |= value[k] >= outside;
  }
  return any_outside;
}

// Where the edge that starts at corner k takes on the value `level`.
VoronoiCorner crossing(const Cut &cut, size_t k, double level, int32_t site, int32_t joined) {
  const size_t after = k + 1 < cut.corners.size() ? k + 1 : 0;
  const VoronoiCorner &from = cut.corners[k];
  const VoronoiCorner &to = cut.corners[after];
  const double t = (cut.value[k] - level) / (cut.value[k] - cut.value[after]);
  return {from.x + t * (to.x - from.x), from.y + t * (to.y - from.y), site, joined};
}

// Replaces what lies beyond the last corner inside, up to the last one outside, by one edge.
void replace_outside(Cut *cut, size_t leave, size_t enter, const Bisector &line) {
  cut->next.clear();
  for (size_t k = enter; k != leave;) {
    k = k + 1 < cut->corners.size() ? k + 1 : 0;
    cut->next.push_back(cut->corners[k]);
  }
  const VoronoiCorner &left = cut->corners[enter];
  cut->next.push_back(crossing(*cut, leave, 0, line.site, line.joined));
  cut->next.push_back(crossing(*cut, enter, 0, left.site, left.joined));
  std::swap(cut->corners, cut->next);
}

// Cuts corner by corner, along a line as far out as the tolerance allows. Each crossing then lies
// on its edge, so however many there are, the cell stays within what it was.
void cut_corners(Cut *cut, const Bisector &line) {
  const size_t count = cut->corners.size();
  cut->next.clear();
  for (size_t k = 0; k < count; k++) {
    const VoronoiCorner &corner = cut->corners[k];
    const bool inside = cut->value[k] < outside;
    const bool next_inside = cut->value[k + 1 < count ? k + 1 : 0] < outside;
    if (inside) cut->next.push_back(corner);
    if (inside && !next_inside)
      cut->next.push_back(crossing(*cut, k, outside, line.site, line.joined));
    if (!inside && next_inside)
      cut->next.push_back(crossing(*cut, k, outside, corner.site, corner.joined));
  }
  std::swap(cut->corners, cut->next);
}

// The runs of corners outside of the measured bisector.
struct OutsideRuns {
  int32_t count;
  size_t leave; // the corner before a run; the number of corners if there is none
  size_t enter; // the last corner of a run; likewise
};

OutsideRuns outside_runs(const Cut &cut) {
  const size_t corners = cut.corners.size();
  OutsideRuns runs = {0, corners, corners};
  double after = cut.value[0];
  for (size_t k = corners; k-- > 0;) {
    const double here = cut.value[k];
    if (after >= outside && here < outside) {
      runs.leave = k;
      runs.count++;
    }
    if (after < outside && here >= outside) runs.enter = k;
    after = here;
  }
  return runs;
}

// Cuts off what is outside of the measured bisector. Nested mazes are off their lattice by about
// 3e-8, so two runs of corners can be outside: of these the plain rule would keep only a sliver
// between them, which the next bisector removes.
void cut_cell(Cut *cut, const Bisector &line) {
  const OutsideRuns runs = outside_runs(*cut);
  const size_t corners = cut->corners.size();
  if (runs.count > 1) {
    cut_corners(cut, line);
  } else if (runs.leave < corners && runs.enter < corners) {
    replace_outside(cut, runs.leave, runs.enter, line);
  } else if (cut->value[0] >= outside) {
    cut->corners.clear();
  }
}

int32_t is_neighbour(const Centre &centre, int32_t node) {
  const int32_t *end = centre.neighbour + centre.neighbours;
  return std::find(centre.neighbour, end, node) != end ? 1 : 0;
}

Centre centre_of(Maze *maze, int32_t node, int32_t across_levels) {
  const MazeNode *nodes = maze_nodes(maze);
  Centre centre = {node_position(nodes[node]), node, 0, {}, 0.0};
  Pos ends[pos_max_edges];
  auto count = static_cast<int32_t>(nodes[node].degree);
  if (across_levels != 0) {
    count = Pos_alledges(maze, node, ends, nullptr);
  } else {
    for (int32_t row = 0; row < count; row++)
      ends[row] = {maze, nodes[node].nbr[row]};
  }
  for (int32_t row = count; row-- > 0;) {
    if (ends[row].maze != maze) continue;
    centre.neighbour[centre.neighbours++] = ends[row].node;
    centre.longest = std::max(centre.longest, length(Pos_position(ends[row]) - centre.place));
  }
  return centre;
}

Block block_around(const BucketGrid *grid, Vec3 place, Vec3 reach) {
  Block block;
  bucket_grid_cell(grid, place - reach, &block.low[0], &block.low[1], &block.low[2]);
  bucket_grid_cell(grid, place + reach, &block.high[0], &block.high[1], &block.high[2]);
  return block;
}

// The place's own cell and those around it.
Block next_cells(const BucketGrid *grid, Vec3 place) {
  Block block = block_around(grid, place, {0, 0, 0});
  const int32_t size[3] = {grid->nx, grid->ny, grid->nz};
  for (int axis = 0; axis < 3; axis++) {
    block.low[axis] = std::max(block.low[axis] - 1, 0);
    block.high[axis] = std::min(block.high[axis] + 1, size[axis] - 1);
  }
  return block;
}

// A grid's points in the order of the cuts, which is that of the ball query from its last index to
// its first: within a column of cells along z from the highest cell down, and through a cell as its
// points were added. So what a block has of a column is one run.
struct CutOrder {
  const BucketGrid *grid;
  std::vector<BucketPoint> points;
  std::vector<uint32_t> start; // of each cell, highest first in its column; then the point count
};

CutOrder order_cuts(const BucketGrid *grid, uint32_t count) {
  CutOrder order = {grid, {}, {}};
  order.points.reserve(count);
  order.start.reserve(grid->buckets.count + 1);
  for (int32_t ix = 0; ix < grid->nx; ix++) {
    for (int32_t iy = 0; iy < grid->ny; iy++) {
      for (int32_t iz = grid->nz - 1; iz >= 0; iz--) {
        const GrowList *bucket = bucket_grid_bucket(grid, ix, iy, iz);
        const BucketPoint *points = rows<BucketPoint>(*bucket);
        order.start.push_back(static_cast<uint32_t>(order.points.size()));
        order.points.insert(order.points.end(), points, points + bucket->count);
      }
    }
  }
  order.start.push_back(count);
  return order;
}

// The points in a block of cells, in that order.
template <typename Visit>
void each_point(const CutOrder &order, const Block &block, const Visit &visit) {
  const BucketGrid *grid = order.grid;
  for (int32_t ix = block.high[0]; ix >= block.low[0]; ix--) {
    for (int32_t iy = block.high[1]; iy >= block.low[1]; iy--) {
      const auto column = static_cast<size_t>((ix * grid->ny + iy) * grid->nz + grid->nz - 1);
      const uint32_t end = order.start[column - static_cast<size_t>(block.low[2]) + 1];
      for (uint32_t i = order.start[column - static_cast<size_t>(block.high[2])]; i < end; i++)
        visit(order.points[i]);
    }
  }
}

// Squared distance from the node to the furthest corner, in the plane.
double reach_squared(const Cut &cut, Vec3 place) {
  double reach = 0;
  for (const VoronoiCorner &corner : cut.corners) {
    const double dx = corner.x - place.x;
    const double dy = corner.y - place.y;
    reach = std::max(reach, dx * dx + dy * dy);
  }
  return reach;
}

// The square of a distance, in the plane, from which on no point can cut the cell, since the
// bisector of a point passes halfway: for a cell that was cut by the points in the nearest buckets
// only. Points have to be found by the query to count.
double cut_limit(Cut *cut, const CutOrder &order, const Centre &centre, double query_squared) {
  start_square(cut, centre);
  double limit = four_times * reach_squared(*cut, centre.place);
  each_point(order, next_cells(order.grid, centre.place), [&](const BucketPoint &point) {
    const Vec3 way = Vec3{point.x, point.y, point.z} - centre.place;
    const double flat = way.x * way.x + way.y * way.y;
    if (!(flat <= limit && flat + way.z * way.z <= query_squared)) return;
    const Bisector line = bisector_towards(centre.place, point);
    if (!measure(cut, line)) return;
    cut_corners(cut, line);
    limit = four_times * reach_squared(*cut, centre.place);
  });
  return std::min(limit, query_squared);
}

// Leaves out points that can't cut and keeps the others in order: of points on one circle around a
// corner, the order decides which keep an edge of no length. The plain rule cuts with all points:
// this empties some cells of nested mazes, and moves corners if edges are below about 0.01 units.
void cut_out(Cut *cut, const CutOrder &order, const Centre &centre) {
  const double query = query_reach * centre.longest;
  double limit = query * query;
  if (query < immense) limit = cut_limit(cut, order, centre, limit);
  const double near = std::sqrt(limit);
  start_square(cut, centre);
  const Block block = block_around(order.grid, centre.place, {near, near, query});
  // Of the last point that cut nothing: those above and below it don't either, as those of the
  // centre itself, which can be many.
  double last_x = centre.place.x;
  double last_y = centre.place.y;
  each_point(order, block, [&](const BucketPoint &point) {
    const Vec3 way = Vec3{point.x, point.y, point.z} - centre.place;
    const double flat = way.x * way.x + way.y * way.y;
    const bool found = flat <= limit && flat + way.z * way.z <= query * query;
    if (!found || point.index == centre.node) return;
    if (point.x == last_x && point.y == last_y) return;
    Bisector line = bisector_towards(centre.place, point);
    if (measure(cut, line)) {
      line.joined = is_neighbour(centre, point.index);
      cut_cell(cut, line);
    } else {
      last_x = point.x;
      last_y = point.y;
    }
  });
}

// The nodes are gone when this runs with the destruction of a maze; the list knows its length.
void cells_destroy(intptr_t data, Maze *) {
  auto *cells = reinterpret_cast<GrowList *>(data);
  for (uint32_t i = cells->count; i-- > 0;)
    GrowList_free(&rows<GrowList>(*cells)[i]);
  GrowList_free(cells);
  delete cells;
}

GrowList *new_cells(uint32_t count) {
  auto *cells = new GrowList;
  GrowList_init(cells, sizeof(GrowList));
  GrowList_reserve(cells, count);
  for (uint32_t i = 0; i < count; i++) {
    GrowList cell;
    GrowList_init(&cell, sizeof(VoronoiCorner));
    GrowList_append(cells, &cell);
  }
  return cells;
}

BucketGrid grid_of_nodes(const Maze *maze, const TreeBounds &bounds) {
  BucketGrid grid;
  bucket_grid_new(&grid, bounds.min, bounds.max, maze_count(maze));
  for (int32_t i = maze_count(maze); i-- > 0;)
    bucket_grid_add(&grid, node_position(maze_nodes(maze)[i]), i);
  return grid;
}

void build(Maze *maze, const TreeBounds &bounds, int32_t across_levels) {
  GrowList *cells = new_cells(maze->nodes.count);
  if (maze->nodes.count > 0) {
    BucketGrid grid = grid_of_nodes(maze, bounds);
    const CutOrder order = order_cuts(&grid, maze->nodes.count);
    Cut cut;
    for (int32_t i = maze_count(maze); i-- > 0;) {
      cut_out(&cut, order, centre_of(maze, i, across_levels));
      if (cut.corners.empty()) continue;
      GrowList_append_many(&rows<GrowList>(*cells)[i], cut.corners.data(),
                           static_cast<uint32_t>(cut.corners.size()));
    }
    bucket_grid_free(&grid);
  }
  Attachment_add(maze, cells_name, reinterpret_cast<intptr_t>(cells), cells_destroy);
}

} // namespace

void voronoi_build(Maze *maze, int32_t across_levels) {
  Attachment_drop(maze, cells_name);
  TreeBounds bounds;
  Maze_bounds(maze, &bounds.min, &bounds.max);
  build(maze, bounds, across_levels);
}

void voronoi_build_missing(Maze *root, int32_t across_levels) {
  const std::vector<TreeBounds> bounds = Maze_tree_bounds(root);
  size_t k = 0;
  for (Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze), k++)
    if (voronoi_cells(maze) == nullptr) build(maze, bounds[k], across_levels);
}

const GrowList *voronoi_cells(const Maze *maze) {
  return reinterpret_cast<const GrowList *>(Attachment_find(maze, cells_name));
}
