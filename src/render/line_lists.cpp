#include "render/line_lists.h"

#include <numbers>

#include "maze/pos.h"
#include "render/edge_colour.h"
#include "support/colour.h"

namespace {

constexpr double widening = 0.005;   // of bodies on each side, by unit of distance
constexpr int32_t chunk_nodes = 128; // a list more costs a frame, a longer one costs a step

static_assert(sizeof(LineRibbon) == 44 && sizeof(LineDisc) == 20); // no padding

// The ends of ribbons that lead to other mazes; kept as they are, not drawn.
constexpr int32_t far_ends = 2;

void add(Box *box, Vec3f place) {
  Box_add(box, {static_cast<double>(place.x), static_cast<double>(place.y),
                static_cast<double>(place.z)});
}

void collect_ribbons(Pos here, int32_t all_levels, GrowList *parts, Box *box) {
  const Vec3 p = Pos_position(here);
  Pos ends[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  for (int32_t e = Pos_edges(here.maze, here.node, all_levels, ends, edges) - 1; e >= 0; e--) {
    if (!Pos_before(here, ends[e])) continue;
    const Vec3 q = Pos_position(ends[e]);
    const LineRibbon ribbon = {rounded(p), rounded(q), rounded(p - q),
                               static_cast<float>(edges[e].usertime),
                               edge_colour(edges[e].colour, here, ends[e])};
    GrowList_append(&parts[0], &ribbon);
    if (ends[e].maze != here.maze) GrowList_append(&parts[far_ends], &ends[e]);
    add(box, ribbon.p);
    add(box, ribbon.q);
  }
}

void collect(const MazeRun &run, GrowList *parts, Box *box) {
  for (int32_t i = run.end - 1; i >= run.first; i--) {
    const MazeNode &node = maze_nodes(run.maze)[i];
    if (node.submaze != nullptr) continue;
    const Pos here = {run.maze, i};
    collect_ribbons(here, run.all_levels, parts, box);
    const LineDisc disc = {rounded(node_position(node)), static_cast<float>(node.self.usertime),
                           edge_colour(node.self.colour, here, Pos_null)};
    GrowList_append(&parts[1], &disc);
    add(box, disc.centre);
  }
}

// The fourth coordinate is a corner code: 0 and 1 the two sides at q, 2 and 3 those at p.
void vertex4(Vec3f place, float corner) {
  glVertex4f(place.x, place.y, place.z, corner);
}

void draw_ribbons(const GrowList &ribbons, uint32_t first, uint32_t end, double halfwidth) {
  for (uint32_t i = first; i < end; i++) {
    const LineRibbon &r = rows<LineRibbon>(ribbons)[i];
    glColor3ub(colour_red(r.colour), colour_green(r.colour), colour_blue(r.colour));
    glNormal3f(r.axis.x, r.axis.y, r.axis.z);
    glTexCoord2f(r.time, static_cast<float>(halfwidth));
    vertex4(r.q, 0);
    vertex4(r.p, 2);
    vertex4(r.p, 3);
    vertex4(r.q, 1);
  }
}

void draw_discs(const GrowList &discs, uint32_t first, uint32_t end, double halfwidth) {
  for (uint32_t i = first; i < end; i++)
    line_draw_disc(rows<LineDisc>(discs)[i], halfwidth);
}

// A disc's square reaches out of its centre by half its diagonal, a ribbon by less; both are the
// wider the farther they are.
double growth(const Box &box, double halfwidth, Vec3 camera) {
  return std::numbers::sqrt2 * (halfwidth + widening * Box_farthest(box, camera));
}

} // namespace

const MazeListKind line_kind = {.name = "lists",
                                .collect = collect,
                                .parts = {{sizeof(LineRibbon), GL_QUADS, draw_ribbons},
                                          {sizeof(LineDisc), GL_QUADS, draw_discs},
                                          {sizeof(Pos), 0, nullptr}},
                                .passes = 2,
                                .chunk = chunk_nodes,
                                .growth = growth};

MazeList *line_lists(Maze *maze, int32_t all_levels) {
  return maze_list(maze, line_kind, all_levels, nullptr);
}

const MazeList *line_lists_known(const Maze *maze) {
  const MazeList *lists = maze_list_known(maze, line_kind);
  return lists != nullptr && lists->all_levels != 0 ? lists : nullptr;
}

Box line_chunk_places(const MazeList *lists, uint32_t k) {
  const MazeChunk &chunk = rows<MazeChunk>(lists->chunks)[k];
  Box box = chunk.bounds.box;
  for (uint32_t i = maze_chunk_begin(lists, k, far_ends); i < chunk.body_end[far_ends]; i++) {
    const Pos end = rows<Pos>(lists->parts[far_ends])[i];
    if (end.node < maze_count(end.maze)) Box_add(&box, Pos_position(end));
  }
  return box;
}

// The alpha channel carries the time of the last arrival to the shader.
void line_draw_disc(const LineDisc &d, double halfwidth) {
  glColor4f(static_cast<float>(colour_red(d.colour)) / 255.0F,
            static_cast<float>(colour_green(d.colour)) / 255.0F,
            static_cast<float>(colour_blue(d.colour)) / 255.0F, d.time);
  glTexCoord4f(d.centre.x, d.centre.y, d.centre.z, static_cast<float>(halfwidth));
  glVertex2f(-1, -1);
  glVertex2f(-1, 1);
  glVertex2f(1, 1);
  glVertex2f(1, -1);
}
