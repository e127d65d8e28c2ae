#include "render/voronoi_geometry.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "generate/transform.h"
#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"
#include "maze/walk.h"
#include "support/point_grid.h"

namespace {

// In lengths of the node's longest edge:
constexpr double square_reach = 3.0; // half the side of the starting square
constexpr double query_reach = 5.0;  // the distance in space within which nodes cut

// From this value on, a corner is outside a bisector. It is a dot product, not a distance.
constexpr double outside = 1e-6;

constexpr double max_finite_query = 1e100;           // squares of larger lengths may be infinite
constexpr double four_with_slack = 4.0 * (1 + 1e-6); // for rounding

// The cell that is being cut, and buffers that are reused from node to node.
struct Cut {
  std::vector<VoronoiCorner> corners;
  std::vector<VoronoiCorner> next;
  std::vector<double> value; // of each corner, by the bisector
};

// The value of a corner is its distance beyond the midpoint, times the distance of the nodes.
struct Bisector {
  double mx, my; // the midpoint of the two nodes
  double dx, dy; // from this node to the other
  int32_t site;
  int32_t joined;
};

// The node whose cell is cut.
struct Centre {
  Vec3 place;
  int32_t node;
  int32_t neighbours;
  int32_t neighbour[pos_max_edges]; // in the same maze
  double longest;                   // edge to one of these
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

Bisector bisector_towards(Vec3 place, const GridPoint &point) {
  return {(place.x + point.place.x) / 2,
          (place.y + point.place.y) / 2,
          point.place.x - place.x,
          point.place.y - place.y,
          point.index,
          0};
}

// Sets the values of all corners. True if any corner is outside.
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

// The point on the edge that starts at corner k where the value is `level`.
VoronoiCorner crossing(const Cut &cut, size_t k, double level, int32_t site, int32_t joined) {
  const size_t after = k + 1 < cut.corners.size() ? k + 1 : 0;
  const VoronoiCorner &from = cut.corners[k];
  const VoronoiCorner &to = cut.corners[after];
  const double t = (cut.value[k] - level) / (cut.value[k] - cut.value[after]);
  return {from.x + t * (to.x - from.x), from.y + t * (to.y - from.y), site, joined};
}

// Replaces the corners after `leave`, the last one inside, up to `enter`, the last one outside, by
// one edge.
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

// Cuts corner by corner, at the tolerance instead of the bisector. Each crossing then lies on its
// edge, so the cell only shrinks, however many crossings there are.
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

// Runs of consecutive corners that are outside.
struct OutsideRuns {
  int32_t count;
  size_t leave; // the corner before a run; the corner count if there is none
  size_t enter; // the last corner of a run; the corner count if there is none
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

// Cuts off what is outside the bisector that was measured. Nested mazes are off their lattice by
// about 3e-8, so two runs of corners can be outside. Cutting out a single run would then keep only
// a sliver between the two, which the next bisector would remove.
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

// Squared distance from the node to its farthest corner, in the plane.
double reach_squared(const Cut &cut, Vec3 place) {
  double reach = 0;
  for (const VoronoiCorner &corner : cut.corners) {
    const double dx = corner.x - place.x;
    const double dy = corner.y - place.y;
    reach = std::max(reach, dx * dx + dy * dy);
  }
  return reach;
}

// Squared distance, in the plane, beyond which no point can cut the cell: twice the radius of the
// cell as cut by near points alone, since a bisector lies halfway. Only points within the query
// count.
double cut_limit(Cut *cut, const PointGrid *grid, const Centre &centre, double query_squared) {
  start_square(cut, centre);
  double limit = four_with_slack * reach_squared(*cut, centre.place);
  PointGrid_each(grid, adjacent_cells(grid, centre.place), [&](const GridPoint &point) {
    const Vec3 way = point.place - centre.place;
    const double flat = way.x * way.x + way.y * way.y;
    if (!(flat <= limit && flat + way.z * way.z <= query_squared)) return;
    const Bisector line = bisector_towards(centre.place, point);
    if (!measure(cut, line)) return;
    cut_corners(cut, line);
    limit = four_with_slack * reach_squared(*cut, centre.place);
  });
  return std::min(limit, query_squared);
}

// Skips points that can't cut, and keeps the order of the others: among points on one circle around
// a corner, the order decides which keep an edge of zero length. Cutting with all points instead
// would empty some cells of nested mazes, and move corners where edges are below about 0.01 units.
void cut_out(Cut *cut, const PointGrid *grid, const Centre &centre) {
  const double query = query_reach * centre.longest;
  double limit = query * query;
  if (query < max_finite_query) limit = cut_limit(cut, grid, centre, limit);
  const double near = std::sqrt(limit);
  start_square(cut, centre);
  // Skip stacks: points with the same x and y as the centre, or as the last one that cut nothing.
  double last_x = centre.place.x;
  double last_y = centre.place.y;
  const GridBlock block = PointGrid_block(grid, centre.place, {near, near, query});
  PointGrid_each(grid, block, [&](const GridPoint &point) {
    const Vec3 way = point.place - centre.place;
    const double flat = way.x * way.x + way.y * way.y;
    const bool found = flat <= limit && flat + way.z * way.z <= query * query;
    if (!found || point.index == centre.node) return;
    if (point.place.x == last_x && point.place.y == last_y) return;
    Bisector line = bisector_towards(centre.place, point);
    if (measure(cut, line)) {
      line.joined = is_neighbour(centre, point.index);
      cut_cell(cut, line);
    } else {
      last_x = point.place.x;
      last_y = point.place.y;
    }
  });
}

// A maze that is being destroyed has no nodes any more, so the list's own count is used.
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

// All nodes are sites, also those that hold a maze.
PointGrid grid_of_nodes(const Maze *maze, const TreeBounds &bounds) {
  std::vector<Vec3> places(maze->nodes.count);
  for (uint32_t i = 0; i < maze->nodes.count; i++)
    places[i] = node_position(maze_nodes(maze)[i]);
  PointGrid grid;
  PointGrid_build_in(&grid, places, bounds.min, bounds.max);
  return grid;
}

void build(Maze *maze, const TreeBounds &bounds, int32_t across_levels) {
  GrowList *cells = new_cells(maze->nodes.count);
  const PointGrid grid = grid_of_nodes(maze, bounds);
  Cut cut;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    cut_out(&cut, &grid, centre_of(maze, i, across_levels));
    if (cut.corners.empty()) continue;
    GrowList_append_many(&rows<GrowList>(*cells)[i], cut.corners.data(),
                         static_cast<uint32_t>(cut.corners.size()));
  }
  Attachment_add(maze, attachment_cells, reinterpret_cast<intptr_t>(cells), cells_destroy);
}

} // namespace

void voronoi_build(Maze *maze, int32_t across_levels) {
  Attachment_drop(maze, attachment_cells);
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
  return reinterpret_cast<const GrowList *>(Attachment_find(maze, attachment_cells));
}
