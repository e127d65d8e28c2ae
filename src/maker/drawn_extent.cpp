#include "maker/drawn_extent.h"

#include "generate/transform.h"
#include "maze/pos.h"
#include "maze/traversal.h"
#include "render/edge_angles.h"
#include "render/maze_label.h"
#include "render/voronoi_geometry.h"
#include "render/voronoi_shapes.h"

namespace {

using Shape = void (*)(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);

// The outermost shapes of each mode of the landscape. The last mode draws walls along the outlines,
// on ground that is extrapolated to them: it can be anywhere, and isn't framed.
constexpr Shape outer_shapes[] = {voronoi_outline, voronoi_box,      voronoi_box,
                                  voronoi_terrain, voronoi_delaunay, voronoi_outline};

void visit_cell(int32_t mode, Maze *maze, int32_t node, const VisitBall &visit) {
  static ShapeList vertices; // keeps its memory
  vertices.clear();
  outer_shapes[mode](&vertices, maze, node, 0);
  for (const ShapeVertex &vertex : vertices)
    visit(vertex.place, 0);
}

// The corners of a hub's roads.
void visit_plates(Maze *maze, int32_t node, const VisitBall &visit) {
  const Vec3 place = node_position(maze_nodes(maze)[node]);
  const EdgeAngleRec *recs = edgeanglerecs(maze) + static_cast<size_t>(node) * pos_max_edges;
  Pos ends[pos_max_edges];
  for (int32_t i = Pos_alledges(maze, node, ends, nullptr); i-- > 0;) {
    visit(place + recs[i].corner1, 0);
    visit(place + recs[i].corner2, 0);
  }
}

void visit_node(const NamedPlot &plot, Maze *maze, int32_t node, const VisitBall &visit) {
  const MazeNode &row = maze_nodes(maze)[node];
  if (row.submaze != nullptr) return;
  if (plot.landscape >= 0) return visit_cell(plot.landscape, maze, node, visit);
  if (plot.type == plot_type_gantry) return visit_plates(maze, node, visit);
  visit(node_position(row), maze->halfwidth);
}

void visit_names(bool all, const Maze *root, const VisitBall &visit) {
  const std::vector<Box> bounds = Maze_tree_bounds(root);
  size_t i = 0;
  for (const Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze), i++) {
    if (maze->name == nullptr || (maze != root && !all)) continue;
    const MazeLabelCorners corners = maze_label_corners(maze->name, bounds[i].low, bounds[i].high);
    visit(corners.low, 0);
    visit(corners.high, 0);
  }
}

} // namespace

void drawn_extent(const NamedPlot &plot, Maze *root, const VisitBall &visit) {
  if (plot.landscape >= 0)
    voronoi_attach_missing(root, 1);
  else if (plot.type == plot_type_lines)
    visit_names(plot.fixed, root, visit);
  Maze_each_node(root, true, [&](Maze *maze, int32_t i) { visit_node(plot, maze, i, visit); });
}
