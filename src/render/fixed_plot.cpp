#include "render/fixed_plot.h"

#include <vector>

#include "generate/transform.h"
#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/pos.h"
#include "render/disc.h"
#include "render/gl/draw_cache.h"
#include "render/gl/edge_colour.h"
#include "render/gl/immediate.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/line_plot.h"
#include "render/maze_label.h"
#include "render/plot_switches.h"
#include "render/shader_text.h"
#include "support/colour.h"

namespace {

constexpr double far_limit = 100.0; // from the camera, world units

// In half-widths:
constexpr double inner_part = 0.6;  // of the inner band and disc
constexpr double disc_before = 1.5; // from a node to its dark disc, towards the camera
constexpr double max_reach = 2.5;   // from nodes and edges to anything that is drawn of them

GLuint disc_program;

uint32_t lighter(uint32_t colour) {
  return colour_adjust(colour, 0x40, 0x40, 0x40);
}

uint32_t darker(uint32_t colour) {
  return colour_adjust(colour, -0x40, -0x40, -0x40);
}

// A NaN distance is neither near nor far.
bool is_near(Vec3 place, Vec3 eye) {
  return length(place - eye) < far_limit;
}

bool is_far(Vec3 place, Vec3 eye) {
  return length(place - eye) >= far_limit;
}

// Draws the inner band nearer to the camera than the outer two, so that where two ribbons cross,
// both dark cores stay visible.
void ribbon(Vec3 p, Vec3 q, Vec3 eye, double halfwidth, uint32_t colour) {
  const Vec3 side = unit(cross(q - p, eye - p));
  const Vec3 towards = unit(eye - p) * halfwidth;
  const double bounds[] = {-halfwidth, -inner_part * halfwidth, inner_part * halfwidth, halfwidth};
  for (int band = 0; band < 3; band++) {
    const bool inner = band == 1;
    const Vec3 raised = inner ? towards : towards * -1.0;
    const Vec3 low = raised + side * bounds[band];
    const Vec3 high = raised + side * bounds[band + 1];
    gfx_set_colour(inner ? darker(colour) : lighter(colour));
    send_vertex(rounded(q + high));
    send_vertex(rounded(p + high));
    send_vertex(rounded(p + low));
    send_vertex(rounded(q + low));
  }
}

// Sends the edges that a node draws, those to ends that come after it (Pos_before): as ribbons
// within GL_QUADS, or as lines within GL_LINES.
void node_edges(Pos here, const View &view, bool all_levels, bool as_ribbons) {
  Pos ends[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  const Vec3 p = Pos_position(here);
  for (int32_t e = Pos_edges(here.maze, here.node, all_levels, ends, edges) - 1; e >= 0; e--) {
    if (!Pos_before(here, ends[e])) continue;
    const uint32_t colour = visit_colour(edges[e], here, ends[e], view.world);
    const Vec3 q = Pos_position(ends[e]);
    if (as_ribbons) {
      ribbon(p, q, view.camera, here.maze->halfwidth, colour);
    } else {
      gfx_set_colour(lighter(colour));
      send_vertex(rounded(p));
      send_vertex(rounded(q));
    }
  }
}

// The user's node is white. The small disc is computed in single precision.
void node_discs(Pos here, const View &view) {
  const Vec3 p = Pos_position(here);
  const double halfwidth = here.maze->halfwidth;
  const Vec3 towards = unit(view.camera - p) * halfwidth;
  const uint32_t colour =
      visit_colour(maze_nodes(here.maze)[here.node].self, here, Pos_null, view.world);
  const bool user = Pos_equal(here, view.world->cur);
  billboard_disc(p - towards, halfwidth, user ? colour_white : lighter(colour), view.camera);
  billboard_disc(single_precision(p + towards * disc_before),
                 static_cast<float>(inner_part * halfwidth), user ? colour_white : darker(colour),
                 view.camera);
}

// The nodes of a maze that the line plot's cache doesn't cull, or all if there is no cache. With
// `all_levels` the mazes that it holds, too.
CullResult cull(const Maze *maze, bool all_levels, const Frustum &frustum) {
  CullResult result;
  const double reach = max_reach * maze->halfwidth;
  if (all_levels && draw_cache_cull(maze, line_batch, frustum, reach, &result)) return result;
  result.nodes.push_back({0, maze_count(maze)});
  for (int32_t i = 0; all_levels && i < maze_count(maze); i++)
    if (Maze *submaze = maze_nodes(maze)[i].submaze) result.submazes.push_back(submaze);
  return result;
}

// Calls `draw` for the plain nodes that are near, or that are far, last nodes first.
template <typename Draw>
void each_plain(Maze *maze, const std::vector<NodeRange> &ranges, bool (*is_in_reach)(Vec3, Vec3),
                Vec3 eye, Draw draw) {
  for (const NodeRange nodes : ranges) {
    for (int32_t i = nodes.end - 1; i >= nodes.first; i--) {
      const Pos here = {maze, i};
      if (Pos_is_place(here) && is_in_reach(Pos_position(here), eye)) draw(here);
    }
  }
}

void ribbon_pass(Maze *maze, const std::vector<NodeRange> &ranges, const View &view,
                 bool all_levels) {
  glBegin(GL_QUADS);
  each_plain(maze, ranges, is_near, view.camera,
             [&](Pos here) { node_edges(here, view, all_levels, true); });
  glEnd();
}

void disc_pass(Maze *maze, const std::vector<NodeRange> &ranges, const View &view) {
  if (disc_program == 0)
    disc_program = program_join(nullptr, shader_disc_vertex, nullptr, shader_disc_fragment);
  gl.use_program(disc_program);
  glBegin(GL_QUADS);
  each_plain(maze, ranges, is_near, view.camera, [&](Pos here) { node_discs(here, view); });
  glEnd();
  gl.use_program(0);
}

void line_pass(Maze *maze, const std::vector<NodeRange> &ranges, const View &view,
               bool all_levels) {
  if (plot_smooth_lines != 0) smooth_lines_on(0, 1.5F);
  glBegin(GL_LINES);
  each_plain(maze, ranges, is_far, view.camera,
             [&](Pos here) { node_edges(here, view, all_levels, false); });
  glEnd();
  if (plot_smooth_lines != 0) smooth_lines_off();
}

void plot_maze(Maze *maze, const std::vector<NodeRange> &ranges, const View &view,
               bool all_levels) {
  if (ranges.empty()) return;
  ribbon_pass(maze, ranges, view, all_levels);
  disc_pass(maze, ranges, view);
  line_pass(maze, ranges, view, all_levels);
}

// Labels the mazes of a tree, which are passed in the order of Maze_next. A name takes the bounds
// from the line plot's caches. Where they are not built, the first name computes the bounds of all
// mazes below it at once.
struct Labels {
  std::vector<Box> bounds;
  size_t next; // row of the next maze
};

void label(Labels *labels, const Maze *maze) {
  if (labels->next == labels->bounds.size()) *labels = {{}, 0};
  if (labels->bounds.empty() && maze->name != nullptr) {
    const Box *known = draw_cache_node_bounds(maze);
    if (known != nullptr) return maze_label_at(maze->name, known->low, known->high);
    labels->bounds = Maze_tree_bounds(maze);
  }
  if (labels->bounds.empty()) return;
  const Box &box = labels->bounds[labels->next++];
  if (maze->name != nullptr) maze_label_at(maze->name, box.low, box.high);
}

} // namespace

void billboard_disc(Vec3 centre, double radius, uint32_t colour, Vec3 eye) {
  Vec3 a, b;
  perpendicular_pair(centre - eye, &a, &b);
  a = a * radius;
  b = b * radius;
  gfx_set_colour(colour);
  glTexCoord4f(static_cast<float>(centre.x), static_cast<float>(centre.y),
               static_cast<float>(centre.z), static_cast<float>(radius));
  const Vec3 corners[] = {centre - a - b, centre + b - a, centre + a + b, centre + a - b};
  for (const Vec3 corner : corners)
    send_vertex(corner);
}

void fixed_plot(Maze *root, const World *world, int32_t all_levels) {
  const View &view = view_of(world);
  Labels labels = {{}, 0};
  std::vector<Maze *> stack = {root};
  while (!stack.empty()) {
    Maze *maze = stack.back();
    stack.pop_back();
    const CullResult visible = cull(maze, all_levels != 0, view.frustum);
    label(&labels, maze);
    plot_maze(maze, visible.nodes, view, all_levels != 0);
    stack.insert(stack.end(), visible.submazes.begin(), visible.submazes.end());
  }
}
