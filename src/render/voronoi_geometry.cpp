#include "render/voronoi_geometry.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "generate/transform.h"
#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"
#include "maze/traversal.h"
#include "render/voronoi_candidates.h"
#include "render/voronoi_cut.h"
#include "support/point_grid.h"

namespace {

// In lengths of the node's longest edge:
constexpr double square_reach = 3.0; // half the side of the starting square
constexpr double query_reach = 5.0;  // the distance in space within which nodes cut

constexpr size_t usual_corners = 6; // of a cell, with those at edges of zero length

// The node whose cell is cut.
struct Centre {
  Vec3 place;
  int32_t node;
  int32_t neighbours;
  int32_t neighbour[pos_max_edges]; // in the same maze
  double longest;                   // edge to one of these
};

int32_t is_neighbour(const Centre &centre, int32_t node) {
  const int32_t *end = centre.neighbour + centre.neighbours;
  return std::find(centre.neighbour, end, node) != end ? 1 : 0;
}

Centre centre_of(Maze *maze, int32_t node, int32_t across_levels) {
  const MazeNode *nodes = maze_nodes(maze);
  Centre centre = {node_position(nodes[node]), node, 0, {}, 0.0};
  Pos ends[pos_max_edges];
  double longest_squared = 0;
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
    const Vec3 place = node_position(nodes[ends[row].node]);
    longest_squared = std::max(longest_squared, length_squared(place - centre.place));
  }
  centre.longest = std::sqrt(longest_squared);
  return centre;
}

bool is_same_column(const GridPoint *a, const GridPoint *b) {
  return a->place.x == b->place.x && a->place.y == b->place.y;
}

// Skips points above or below the last two that cut nothing: walls have stacks of points.
void cut_out(CutCell *cell, VoronoiCandidates *candidates, const PointGrid *grid,
             const Centre &centre) {
  voronoi_candidates(candidates, grid, centre.place, query_reach * centre.longest);
  cut_cell_start(cell, centre.place, square_reach * centre.longest);
  const GridPoint itself = {centre.place, centre.node};
  const GridPoint *idle[2] = {&itself, &itself};
  for (size_t k = 0; k < candidates->count && cell->count > 0; k++) {
    const GridPoint *point = candidates->points[k];
    if (is_same_column(point, idle[0]) || is_same_column(point, idle[1])) continue;
    if (cut_cell(cell, centre.place, *point)) continue;
    idle[1] = idle[0];
    idle[0] = point;
  }
}

// A cell's corners in a list of all.
struct CornerRange {
  uint32_t begin, count;
};

constexpr CornerRange not_cut = {UINT32_MAX, 0};

// The cells of a maze, each cut when it is first needed.
struct Cells {
  Maze *maze;
  Box bounds; // as they were when this was attached
  int32_t across_levels;
  bool flat; // all nodes have the same height
  PointGrid grid;
  std::vector<VoronoiCorner> corners;
  std::vector<CornerRange> ranges; // by node; none before the first is cut
  CutCell cell;                    // buffers
  VoronoiCandidates candidates;
};

void cells_destroy(intptr_t data, Maze *) {
  delete reinterpret_cast<Cells *>(data);
}

// All nodes are sites, also those that hold a maze.
PointGrid grid_of_nodes(const Maze *maze, const Box &bounds) {
  PointGrid grid;
  PointGrid_build_in(&grid, Maze_node_positions(maze), bounds.low, bounds.high);
  return grid;
}

bool has_one_height(const Maze *maze) {
  const MazeNode *nodes = maze_nodes(maze);
  for (int32_t i = 1; i < maze_count(maze); i++)
    if (!(nodes[i].z == nodes[0].z)) return false;
  return true;
}

Cells *attach(Maze *maze, const Box &bounds, int32_t across_levels) {
  auto *cells = new Cells{maze, bounds, across_levels, has_one_height(maze), {}, {}, {}, {}, {}};
  Attachment_add(maze, attachment_cells, reinterpret_cast<intptr_t>(cells), cells_destroy);
  return cells;
}

void append_cell(Cells *cells, const Centre &centre) {
  CornerRange &range = cells->ranges[static_cast<size_t>(centre.node)];
  range = {static_cast<uint32_t>(cells->corners.size()), static_cast<uint32_t>(cells->cell.count)};
  for (size_t k = 0; k < cells->cell.count; k++) {
    cells->corners.push_back(cells->cell.corners[k]);
    VoronoiCorner &corner = cells->corners.back();
    corner.joined = corner.site < 0 ? -1 : is_neighbour(centre, corner.site);
  }
}

CornerRange find_or_cut(Cells *cells, int32_t node) {
  if (cells->ranges.empty()) {
    cells->ranges.assign(cells->maze->nodes.count, not_cut);
    cells->grid = grid_of_nodes(cells->maze, cells->bounds);
  }
  CornerRange &range = cells->ranges[static_cast<size_t>(node)];
  if (range.begin != not_cut.begin) return range;
  const Centre centre = centre_of(cells->maze, node, cells->across_levels);
  cut_out(&cells->cell, &cells->candidates, &cells->grid, centre);
  append_cell(cells, centre);
  return range;
}

Cells *find_cells(const Maze *maze) {
  return reinterpret_cast<Cells *>(Attachment_find(maze, attachment_cells));
}

} // namespace

void voronoi_build(Maze *maze, int32_t across_levels) {
  Attachment_drop(maze, attachment_cells);
  Box bounds;
  Maze_bounds(maze, &bounds.low, &bounds.high);
  Cells *cells = attach(maze, bounds, across_levels);
  cells->corners.reserve(maze->nodes.count * usual_corners);
  for (int32_t i = maze_count(maze); i-- > 0;)
    find_or_cut(cells, i);
  cells->grid = {};
}

void voronoi_attach_missing(Maze *root, int32_t across_levels) {
  const std::vector<Box> bounds = Maze_tree_bounds(root);
  size_t k = 0;
  for (Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze), k++)
    if (!voronoi_is_attached(maze)) attach(maze, bounds[k], across_levels);
}

bool voronoi_is_attached(const Maze *maze) {
  return find_cells(maze) != nullptr;
}

bool voronoi_is_flat(const Maze *maze) {
  return find_cells(maze)->flat;
}

VoronoiCell voronoi_cell(const Maze *maze, int32_t node) {
  Cells *cells = find_cells(maze);
  const CornerRange range = find_or_cut(cells, node);
  return {cells->corners.data() + range.begin, static_cast<int32_t>(range.count)};
}
