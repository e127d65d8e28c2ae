#include "maker/drawn_extent.h"

#include "generate/transform.h"
#include "maze/pos.h"
#include "maze/walk.h"
#include "render/edge_angles.h"
#include "render/maze_label.h"
#include "render/voronoi_geometry.h"
#include "render/voronoi_shapes.h"

namespace {

constexpr int32_t gantry_type = 1, line_type = 0; // of PlotName

using Shape = void (*)(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);

// The outermost shapes of each mode of the landscape. The last mode draws walls along the outlines,
// on ground that is extrapolated to them: it can be anywhere, and isn't framed.
constexpr Shape outer_shapes[] = {voronoi_outline, voronoi_box,      voronoi_box,
                                  voronoi_terrain, voronoi_delaunay, voronoi_outline};

void add_cell(int32_t mode, Maze *maze, int32_t node, std::vector<ExtentBall> *out) {
  static ShapeList vertices; // keeps its memory
  vertices.clear();
  outer_shapes[mode](&vertices, maze, node, 0);
  for (const ShapeVertex &vertex : vertices)
    out->push_back({vertex.place, 0});
}

// The hub and the corners of its roads.
void add_plates(Maze *maze, int32_t node, std::vector<ExtentBall> *out) {
  const Vec3 place = node_position(maze_nodes(maze)[node]);
  const EdgeAngleRec *recs = edgeanglerecs(maze) + static_cast<size_t>(node) * pos_max_edges;
  Pos ends[pos_max_edges];
  for (int32_t i = Pos_alledges(maze, node, ends, nullptr); i-- > 0;) {
    out->push_back({place + recs[i].corner1, 0});
    out->push_back({place + recs[i].corner2, 0});
  }
}

} // namespace

void drawn_extent_begin(const PlotName &plot, Maze *root) {
  if (plot.landscape >= 0) voronoi_attach_missing(root, 1);
}

void drawn_extent(const PlotName &plot, Maze *maze, int32_t node, std::vector<ExtentBall> *out) {
  const MazeNode &row = maze_nodes(maze)[node];
  if (row.submaze != nullptr) return;
  if (plot.landscape >= 0) return add_cell(plot.landscape, maze, node, out);
  if (plot.type == gantry_type) return add_plates(maze, node, out);
  out->push_back({node_position(row), maze->halfwidth});
}

void drawn_extent_of_names(const PlotName &plot, const Maze *root, std::vector<ExtentBall> *out) {
  if (plot.landscape >= 0 || plot.type != line_type) return;
  const std::vector<TreeBounds> bounds = Maze_tree_bounds(root);
  size_t i = 0;
  for (const Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze), i++) {
    if (maze->name == nullptr || (maze != root && !plot.fixed)) continue;
    const MazeLabelCorners corners = maze_label_corners(maze->name, bounds[i].min, bounds[i].max);
    out->push_back({corners.low, 0});
    out->push_back({corners.high, 0});
  }
}
