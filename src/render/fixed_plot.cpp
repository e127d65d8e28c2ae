#include "render/fixed_plot.h"

#include <vector>

#include "generate/transform.h"
#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/pos.h"
#include "render/disc.h"
#include "render/edge_colour.h"
#include "render/line_lists.h"
#include "render/maze_label.h"
#include "render/plot.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"
#include "support/colour.h"

namespace {

constexpr double far_limit = 100.0; // from the eye, world units
constexpr double inner_part = 0.6;  // of the half-width, for the inner band and disc
constexpr double disc_before = 1.5; // half-widths by which a node's dark disc stands forward
constexpr double reach = 2.5; // half-widths by which anything drawn reaches out of places, at most

GLuint disc_program;

void set_colour(uint32_t colour) {
  glColor3ub(colour_red(colour), colour_green(colour), colour_blue(colour));
}

uint32_t lighter(uint32_t colour) {
  return colour_adjust(colour, 0x40, 0x40, 0x40);
}

uint32_t darker(uint32_t colour) {
  return colour_adjust(colour, -0x40, -0x40, -0x40);
}

void vertex(Vec3 place) {
  const Vec3f p = rounded(place);
  glVertex3f(p.x, p.y, p.z);
}

// Places whose distance is no number are neither.
bool is_near(Vec3 place, const World *world) {
  return length(place - world->camera) < far_limit;
}

bool is_far(Vec3 place, const World *world) {
  return length(place - world->camera) >= far_limit;
}

// The inner band stands towards the eye and the outer two behind, so that of two ribbons that cross
// both keep their dark cores.
void ribbon(Vec3 p, Vec3 q, Vec3 eye, double halfwidth, uint32_t colour) {
  const Vec3 side = unit(cross(q - p, eye - p));
  const Vec3 towards = unit(eye - p) * halfwidth;
  const double bounds[] = {-halfwidth, -inner_part * halfwidth, inner_part * halfwidth, halfwidth};
  for (int band = 0; band < 3; band++) {
    const bool inner = band == 1;
    const Vec3 raised = inner ? towards : towards * -1.0;
    const Vec3 low = raised + side * bounds[band];
    const Vec3 high = raised + side * bounds[band + 1];
    set_colour(inner ? darker(colour) : lighter(colour));
    vertex(q + high);
    vertex(p + high);
    vertex(p + low);
    vertex(q + low);
  }
}

// The edges of which a node is the lesser end: as ribbons between GL_QUADS, as lines between
// GL_LINES.
void node_edges(Pos here, const World *world, int32_t all_levels, bool as_ribbons) {
  Pos ends[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  const Vec3 p = Pos_position(here);
  for (int32_t e = Pos_edges(here.maze, here.node, all_levels, ends, edges) - 1; e >= 0; e--) {
    if (!Pos_before(here, ends[e])) continue;
    const uint32_t colour = visit_colour(edges[e], here, ends[e], world);
    const Vec3 q = Pos_position(ends[e]);
    if (as_ribbons) {
      ribbon(p, q, world->camera, here.maze->halfwidth, colour);
    } else {
      set_colour(lighter(colour));
      vertex(p);
      vertex(q);
    }
  }
}

// The user's node is white. The small disc's centre and radius are numbers of single precision.
void node_discs(Pos here, const World *world) {
  const Vec3 p = Pos_position(here);
  const Vec3 eye = world->camera;
  const double halfwidth = here.maze->halfwidth;
  const Vec3 towards = unit(eye - p) * halfwidth;
  const uint32_t colour =
      visit_colour(maze_nodes(here.maze)[here.node].self, here, Pos_null, world);
  const bool user = Pos_equal(here, world->cur);
  billboard_disc(p - towards, halfwidth, user ? colour_white : lighter(colour), eye);
  billboard_disc(single_precision(p + towards * disc_before),
                 static_cast<float>(inner_part * halfwidth), user ? colour_white : darker(colour),
                 eye);
}

bool is_plain(Pos pos) {
  return maze_nodes(pos.maze)[pos.node].submaze == nullptr;
}

// Some of a maze's nodes, from `first` to before `end`.
struct Run {
  int32_t first, end;
};

// What of a maze may come into sight, last nodes first. The line plot knows where things lie; all
// else has to be drawn.
GrowList runs_in_sight(const Maze *maze, const MazeList *lists, const Sight &sight) {
  GrowList runs;
  GrowList_init(&runs, sizeof(Run));
  if (lists == nullptr) {
    const Run whole = {0, maze_count(maze)};
    GrowList_append(&runs, &whole);
    return runs;
  }
  for (uint32_t k = 0; k < lists->chunks.count; k++) {
    const MazeChunk &chunk = rows<MazeChunk>(lists->chunks)[k];
    const Run run = {chunk.first, chunk.end};
    if (!Sight_excludes(sight, line_chunk_places(lists, k), reach * maze->halfwidth, sight_planes))
      GrowList_append(&runs, &run);
  }
  return runs;
}

// Calls `draw` for the plain nodes of the runs that are near, or that are far, last nodes first.
template <typename Draw>
void each_plain(Maze *maze, const GrowList &runs, bool (*at)(Vec3, const World *),
                const World *world, Draw draw) {
  for (uint32_t k = 0; k < runs.count; k++) {
    const Run run = rows<Run>(runs)[k];
    for (int32_t i = run.end - 1; i >= run.first; i--) {
      const Pos here = {maze, i};
      if (is_plain(here) && at(Pos_position(here), world)) draw(here);
    }
  }
}

void ribbon_pass(Maze *maze, const GrowList &runs, const World *world, int32_t all_levels) {
  glBegin(GL_QUADS);
  each_plain(maze, runs, is_near, world,
             [&](Pos here) { node_edges(here, world, all_levels, true); });
  glEnd();
}

void disc_pass(Maze *maze, const GrowList &runs, const World *world) {
  if (disc_program == 0) {
    disc_program =
        program_build(&shader_disc_vertex, 1, &shader_disc_fragment, 1, nullptr, nullptr, nullptr);
  }
  gl2.use_program(disc_program);
  glBegin(GL_QUADS);
  each_plain(maze, runs, is_near, world, [&](Pos here) { node_discs(here, world); });
  glEnd();
  gl2.use_program(0);
}

void line_pass(Maze *maze, const GrowList &runs, const World *world, int32_t all_levels) {
  if (plot_smooth_lines != 0) smooth_lines_on(0, 1.5F);
  glBegin(GL_LINES);
  each_plain(maze, runs, is_far, world,
             [&](Pos here) { node_edges(here, world, all_levels, false); });
  glEnd();
  if (plot_smooth_lines != 0) smooth_lines_off();
}

void plot_maze(Maze *maze, const MazeList *lists, const World *world, int32_t all_levels,
               const Sight &sight) {
  GrowList runs = runs_in_sight(maze, lists, sight);
  if (runs.count > 0) {
    ribbon_pass(maze, runs, world, all_levels);
    disc_pass(maze, runs, world);
    line_pass(maze, runs, world, all_levels);
  }
  GrowList_free(&runs);
}

// Puts the mazes that a maze holds on the stack, the last holder's on top.
void push_below(const Maze *maze, const MazeList *lists, std::vector<Maze *> *stack) {
  if (lists != nullptr) { // no nodes to look through
    for (uint32_t i = lists->below.count; i-- > 0;)
      stack->push_back(rows<MazeBelow>(lists->below)[i].maze);
    return;
  }
  for (int32_t i = 0; i < maze_count(maze); i++)
    if (Maze *submaze = maze_nodes(maze)[i].submaze) stack->push_back(submaze);
}

// Labels the mazes of a tree, which come in the order of Maze_next. The first name computes the
// bounds of all mazes below it at once.
struct Labels {
  std::vector<TreeBounds> bounds;
  size_t next; // of these, the box of the next maze
};

void label(Labels *labels, const Maze *maze) {
  if (labels->next == labels->bounds.size()) *labels = {{}, 0};
  if (labels->bounds.empty() && maze->name != nullptr) labels->bounds = Maze_tree_bounds(maze);
  if (labels->bounds.empty()) return;
  const TreeBounds &box = labels->bounds[labels->next++];
  if (maze->name != nullptr) maze_label_at(maze->name, box.min, box.max);
}

} // namespace

void billboard_disc(Vec3 centre, double radius, uint32_t colour, Vec3 eye) {
  Vec3 a, b;
  perpendicular_pair(centre - eye, &a, &b);
  a = a * radius;
  b = b * radius;
  set_colour(colour);
  glTexCoord4f(static_cast<float>(centre.x), static_cast<float>(centre.y),
               static_cast<float>(centre.z), static_cast<float>(radius));
  const Vec3 corners[] = {centre - a - b, centre + b - a, centre + a + b, centre + a - b};
  for (const Vec3 corner : corners) {
    glVertex3d(corner.x, corner.y, corner.z);
  }
}

void fixed_plot(Maze *root, const World *world, int32_t all_levels) {
  const Sight sight = sight_now();
  Labels labels = {{}, 0};
  std::vector<Maze *> stack = {root};
  while (!stack.empty()) {
    Maze *maze = stack.back();
    stack.pop_back();
    const MazeList *lists = all_levels != 0 ? line_lists_known(maze) : nullptr;
    label(&labels, maze);
    plot_maze(maze, lists, world, all_levels, sight);
    if (all_levels != 0) push_below(maze, lists, &stack);
  }
}
