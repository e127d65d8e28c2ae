#include "render/line_lists.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <numbers>
#include <utility>

#include "gfx/window.h"
#include "maze/attachment.h"
#include "maze/pos.h"
#include "render/edge_colour.h"
#include "support/colour.h"

namespace {

constexpr const char *lists_name = "lists";

constexpr double widening = 0.005;   // of bodies on each side, by unit of distance
constexpr int32_t chunk_nodes = 128; // a list more costs a frame, a longer one costs a step

// How often an attachment went. A tree that was complete since the last time still is.
uint64_t drops = 1;

// Lists whose attachment was dropped by a step, to be taken up again when it is made anew. They are
// no attachment of their own, which a person would be shown. A step drops two at most; those that
// nobody comes back for go when their place is needed.
struct Parked {
  Maze *maze;
  LineLists *lists;
};
Parked parked[4];
uint32_t next_place;

GLsizei list_count(const LineLists *lists) {
  return static_cast<GLsizei>(2 * lists->chunks.count);
}

// The context may be gone by the time a maze is destroyed, and its lists with it.
void release(LineLists *lists) {
  if (lists->first_name != 0 && gfx_context_alive())
    glDeleteLists(lists->first_name, list_count(lists));
  GrowList_free(&lists->ribbons);
  GrowList_free(&lists->discs);
  GrowList_free(&lists->far_ends);
  GrowList_free(&lists->chunks);
  GrowList_free(&lists->below);
  delete lists;
}

void park(Maze *maze, LineLists *lists) {
  Parked &place = parked[next_place++ % std::size(parked)];
  if (place.lists != nullptr) release(place.lists);
  place = {maze, lists};
}

LineLists *take_parked(const Maze *maze) {
  for (Parked &place : parked) {
    if (place.maze != maze) continue;
    LineLists *lists = place.lists;
    place = {};
    return lists;
  }
  return nullptr;
}

// A maze that is being destroyed has no nodes any more.
void lists_destroy(intptr_t data, Maze *maze) {
  auto *lists = reinterpret_cast<LineLists *>(data);
  if (lists->first_name != 0 && maze_count(maze) > 0) {
    park(maze, lists);
  } else {
    release(lists);
  }
  drops++;
}

void find_below(const Maze *maze, GrowList *below) {
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    const LineBelow row = {maze_nodes(maze)[i].submaze, nullptr, {}};
    if (row.maze != nullptr) GrowList_append(below, &row);
  }
}

LineLists *lists_new(const Maze *maze, int32_t all_levels) {
  auto *lists = new LineLists{};
  GrowList_init(&lists->ribbons, sizeof(LineRibbon));
  GrowList_init(&lists->discs, sizeof(LineDisc));
  GrowList_init(&lists->far_ends, sizeof(Pos));
  GrowList_init(&lists->chunks, sizeof(LineChunk));
  GrowList_init(&lists->below, sizeof(LineBelow));
  GrowList_reserve(&lists->ribbons, maze->nodes.count);
  GrowList_reserve(&lists->discs, maze->nodes.count);
  lists->halfwidth = static_cast<float>(maze->halfwidth);
  lists->all_levels = all_levels != 0;
  return lists;
}

void collect(LineLists *lists, Maze *maze) {
  for (int32_t end = maze_count(maze); end > 0; end -= chunk_nodes) {
    const int32_t first = std::max(end - chunk_nodes, 0);
    LineChunk chunk = {first, end - first, {}, 0, GL_FALSE, {box_empty, maze->halfwidth}};
    line_collect_ribbons(maze, first, end, lists->all_levels, &lists->ribbons, &lists->far_ends,
                         &chunk.bounds.box);
    line_collect_discs(maze, first, end, &lists->discs, &chunk.bounds.box);
    chunk.end[0] = lists->ribbons.count;
    chunk.end[1] = lists->discs.count;
    chunk.far_end = lists->far_ends.count;
    GrowList_append(&lists->chunks, &chunk);
  }
}

uint32_t chunk_begin(const LineLists *lists, uint32_t k, int32_t which) {
  return k == 0 ? 0 : rows<LineChunk>(lists->chunks)[k - 1].end[which];
}

// Whether a chunk has the same bodies in two lists.
static_assert(sizeof(LineRibbon) == 44 && sizeof(LineDisc) == 20); // no padding
template <typename Body>
bool same_bodies(const LineLists *a, const GrowList &bodies_a, const LineLists *b,
                 const GrowList &bodies_b, uint32_t k, int32_t which) {
  const uint32_t begin_a = chunk_begin(a, k, which), begin_b = chunk_begin(b, k, which);
  const uint32_t count = rows<LineChunk>(a->chunks)[k].end[which] - begin_a;
  return count == rows<LineChunk>(b->chunks)[k].end[which] - begin_b &&
         std::memcmp(rows<Body>(bodies_a) + begin_a, rows<Body>(bodies_b) + begin_b,
                     count * sizeof(Body)) == 0;
}

// Takes over the display lists of an older state of the maze, which are in part up to date.
void take_over(LineLists *lists, LineLists *old) {
  if (lists->chunks.count != old->chunks.count || lists->halfwidth != old->halfwidth) return;
  for (uint32_t k = 0; k < lists->chunks.count; k++) {
    rows<LineChunk>(lists->chunks)[k].compiled =
        rows<LineChunk>(old->chunks)[k].compiled &&
        same_bodies<LineRibbon>(lists, lists->ribbons, old, old->ribbons, k, 0) &&
        same_bodies<LineDisc>(lists, lists->discs, old, old->discs, k, 1);
  }
  std::swap(lists->first_name, old->first_name);
}

LineLists *lists_make(Maze *maze, int32_t all_levels) {
  LineLists *lists = lists_new(maze, all_levels);
  collect(lists, maze);
  find_below(maze, &lists->below);
  if (LineLists *old = take_parked(maze)) {
    take_over(lists, old);
    release(old);
  }
  Attachment_add(maze, lists_name, reinterpret_cast<intptr_t>(lists), lists_destroy);
  return lists;
}

LineLists *find(const Maze *maze) {
  return reinterpret_cast<LineLists *>(Attachment_find(maze, lists_name));
}

LineLists *find_or_make(Maze *maze, int32_t all_levels) {
  LineLists *lists = find(maze);
  return lists != nullptr ? lists : lists_make(maze, all_levels);
}

void unite(LineBounds *bounds, const LineBounds &other) {
  Box_unite(&bounds->box, other.box);
  bounds->halfwidth = std::max(bounds->halfwidth, other.halfwidth);
}

LineLists *complete(Maze *maze) {
  LineLists *lists = find_or_make(maze, 1);
  lists->all = {box_empty, 0};
  for (uint32_t k = 0; k < lists->chunks.count; k++)
    unite(&lists->all, rows<LineChunk>(lists->chunks)[k].bounds);
  for (uint32_t i = 0; i < lists->below.count; i++) {
    LineBelow &row = rows<LineBelow>(lists->below)[i];
    row.lists = complete(row.maze);
    row.bounds = row.lists->all;
    unite(&lists->all, row.bounds);
  }
  lists->checked = drops;
  return lists;
}

void set(float *out, Vec3 v) {
  out[0] = static_cast<float>(v.x);
  out[1] = static_cast<float>(v.y);
  out[2] = static_cast<float>(v.z);
}

void add(Box *box, const float *place) {
  Box_add(box, {static_cast<double>(place[0]), static_cast<double>(place[1]),
                static_cast<double>(place[2])});
}

// The fourth coordinate is a corner code: 0 and 1 the two sides at q, 2 and 3 those at p.
void vertex4(const float *place, float corner) {
  glVertex4f(place[0], place[1], place[2], corner);
}

} // namespace

LineLists *line_lists(Maze *maze, int32_t all_levels) {
  LineLists *lists = find_or_make(maze, all_levels);
  return all_levels == 0 || lists->checked == drops ? lists : complete(maze);
}

const LineLists *line_lists_known(const Maze *maze) {
  const LineLists *lists = find(maze);
  return lists != nullptr && lists->all_levels ? lists : nullptr;
}

void line_chunk_compile(LineLists *lists, uint32_t k) {
  LineChunk &chunk = rows<LineChunk>(lists->chunks)[k];
  if (chunk.compiled) return;
  const uint32_t ribbon = chunk_begin(lists, k, 0), disc = chunk_begin(lists, k, 1);
  if (lists->first_name == 0) lists->first_name = glGenLists(list_count(lists));
  glNewList(lists->first_name + 2 * k, GL_COMPILE);
  line_draw_ribbons(rows<LineRibbon>(lists->ribbons) + ribbon, chunk.end[0] - ribbon,
                    lists->halfwidth);
  glEndList();
  glNewList(lists->first_name + 2 * k + 1, GL_COMPILE);
  line_draw_discs(rows<LineDisc>(lists->discs) + disc, chunk.end[1] - disc, lists->halfwidth);
  glEndList();
  chunk.compiled = GL_TRUE;
}

void line_lists_draw(LineLists *lists, int32_t which, const LineSight &sight) {
  for (uint32_t k = 0; k < lists->chunks.count; k++) {
    const LineChunk &chunk = rows<LineChunk>(lists->chunks)[k];
    if (!line_may_see(sight, chunk.bounds)) continue;
    line_chunk_compile(lists, k);
    glCallList(lists->first_name + 2 * k + static_cast<GLuint>(which));
  }
}

// A disc's square reaches out of its centre by half its diagonal, a ribbon by less.
bool line_may_see(const LineSight &sight, const LineBounds &bounds) {
  const double halfwidth = std::max(bounds.halfwidth, sight.root_halfwidth);
  const double farthest = Box_farthest(bounds.box, sight.camera);
  const double growth = std::numbers::sqrt2 * (halfwidth + widening * farthest);
  return !Sight_excludes(sight.sight, bounds.box, growth, sight_planes);
}

Box line_chunk_places(const LineLists *lists, uint32_t k) {
  const LineChunk &chunk = rows<LineChunk>(lists->chunks)[k];
  Box box = chunk.bounds.box;
  for (uint32_t i = k == 0 ? 0 : (&chunk)[-1].far_end; i < chunk.far_end; i++) {
    const Pos end = rows<Pos>(lists->far_ends)[i];
    if (end.node < maze_count(end.maze)) Box_add(&box, Pos_position(end));
  }
  return box;
}

void line_collect_ribbons(Maze *maze, int32_t first, int32_t end, int32_t all_levels, GrowList *out,
                          GrowList *far_ends, Box *box) {
  for (int32_t i = end - 1; i >= first; i--) {
    if (maze_nodes(maze)[i].submaze != nullptr) continue;
    const Pos here = {maze, i};
    const Vec3 p = Pos_position(here);
    Pos ends[pos_max_edges];
    MazeEdge edges[pos_max_edges];
    for (int32_t e = Pos_edges(maze, i, all_levels, ends, edges) - 1; e >= 0; e--) {
      if (!Pos_before(here, ends[e])) continue;
      const Vec3 q = Pos_position(ends[e]);
      LineRibbon ribbon;
      set(ribbon.p, p);
      set(ribbon.q, q);
      set(ribbon.axis, p - q);
      ribbon.time = static_cast<float>(edges[e].usertime);
      ribbon.colour = edge_colour(edges[e].colour, here, ends[e]);
      GrowList_append(out, &ribbon);
      if (ends[e].maze != maze) GrowList_append(far_ends, &ends[e]);
      add(box, ribbon.p);
      add(box, ribbon.q);
    }
  }
}

void line_collect_discs(Maze *maze, int32_t first, int32_t end, GrowList *out, Box *box) {
  for (int32_t i = end - 1; i >= first; i--) {
    const MazeNode &node = maze_nodes(maze)[i];
    if (node.submaze != nullptr) continue;
    LineDisc disc;
    set(disc.centre, node_position(node));
    disc.time = static_cast<float>(node.self.usertime);
    disc.colour = edge_colour(node.self.colour, {maze, i}, Pos_null);
    GrowList_append(out, &disc);
    add(box, disc.centre);
  }
}

void line_draw_ribbons(const LineRibbon *ribbons, uint32_t count, float halfwidth) {
  glBegin(GL_QUADS);
  for (uint32_t i = 0; i < count; i++) {
    const LineRibbon &r = ribbons[i];
    glColor3ub(colour_red(r.colour), colour_green(r.colour), colour_blue(r.colour));
    glNormal3f(r.axis[0], r.axis[1], r.axis[2]);
    glTexCoord2f(r.time, halfwidth);
    vertex4(r.q, 0);
    vertex4(r.p, 2);
    vertex4(r.p, 3);
    vertex4(r.q, 1);
  }
  glEnd();
}

// The alpha channel carries the time of the last arrival to the shader.
void line_draw_discs(const LineDisc *discs, uint32_t count, float halfwidth) {
  glBegin(GL_QUADS);
  for (uint32_t i = 0; i < count; i++) {
    const LineDisc &d = discs[i];
    glColor4f(static_cast<float>(colour_red(d.colour)) / 255.0F,
              static_cast<float>(colour_green(d.colour)) / 255.0F,
              static_cast<float>(colour_blue(d.colour)) / 255.0F, d.time);
    glTexCoord4f(d.centre[0], d.centre[1], d.centre[2], halfwidth);
    glVertex2f(-1, -1);
    glVertex2f(-1, 1);
    glVertex2f(1, 1);
    glVertex2f(1, -1);
  }
  glEnd();
}
