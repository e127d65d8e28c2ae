#include "render/gantry_plot.h"

#include <algorithm>
#include <cmath>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"
#include "render/edge_angles.h"
#include "render/gantry_texture.h"
#include "render/gl/draw_cache.h"
#include "render/gl/edge_colour.h"
#include "render/gl/immediate.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/shader_text.h"

namespace {

constexpr int32_t chunk_nodes = 256;

constexpr double texture_repeats = 20.0; // per world unit
constexpr double light_height = 1.0;     // of the user's light above the user, world units
constexpr double light_brightness = 5.0;

GLuint gantry_program;
GLuint colour_texture;
GLuint normal_texture;

// The normal of a road along d whose cross-section is horizontal. It points up, and is zero for a
// vertical road.
Vec3 road_normal(Vec3 d) {
  const Vec3 way = horizontal_direction(d);
  return unit(cross({way.y, -way.x, 0}, d));
}

// The angle of d about the main axis of the normal. The shader chooses that axis too, from the
// normal in single precision, so the same numbers decide here.
double texture_angle(Vec3 normal, Vec3 d) {
  const float x = std::abs(static_cast<float>(normal.x));
  const float y = std::abs(static_cast<float>(normal.y));
  const float z = std::abs(static_cast<float>(normal.z));
  if (x >= y && x >= z) return std::atan2(d.z, d.y);
  if (z <= y) return std::atan2(d.x, d.z);
  return std::atan2(d.y, d.x);
}

struct Corner {
  float s, t; // texture coordinates
  Vec3f place;
};

// The plate along an edge that this maze draws, since its end comes first (Pos_before).
struct Road {
  Vec3f normal;
  float angle; // of the texture
  uint32_t colour;
  Corner corners[4];
};

// The part of a hub between two roads.
struct Wedge {
  Vec3f centre;
  uint32_t colour;
  Corner corners[2];
};

static_assert(sizeof(Road) == 100 && sizeof(Wedge) == 56); // no padding

// `s` and `t` are world units along the plate.
Corner corner(double s, double t, Vec3 place, Box *box) {
  box_add(box, place);
  return {static_cast<float>(texture_repeats * s), static_cast<float>(texture_repeats * t),
          rounded(place)};
}

// A road from p to q, with the corners `here` at p, and `there`, as seen from q, at q.
Road road(Vec3 p, Vec3 q, const EdgeAngleRec &here, const EdgeAngleRec &there, double halfwidth,
          uint32_t colour, Box *box) {
  const Vec3 d = q - p, normal = road_normal(d);
  const double size = length(d);
  return {rounded(normal),
          static_cast<float>(texture_angle(normal, d)),
          colour,
          {corner(here.trim1, halfwidth, p + here.corner1, box),
           corner(here.trim2, -halfwidth, p + here.corner2, box),
           corner(size - there.trim1, -halfwidth, q + there.corner1, box),
           corner(size - there.trim2, halfwidth, q + there.corner2, box)}};
}

// The texture of a hub is horizontal, at the scale of the roads.
Wedge wedge(Vec3 p, const EdgeAngleRec &rec, uint32_t colour, Box *box) {
  const Vec3 right = rec.corner2, left = rec.corner1;
  box_add(box, p);
  return {rounded(p),
          colour,
          {corner(right.x, right.y, p + right, box), corner(left.x, left.y, p + left, box)}};
}

// The colours of a node and of its entries in Pos_alledges.
struct NodeColours {
  uint32_t count, colour[1 + pos_max_edges];
};

NodeColours node_colours(Pos here, const MazeNode &node) {
  NodeColours colours = {1, {node.self.colour}};
  for (uint32_t r = 0; r < node.degree; r++)
    colours.colour[colours.count++] = node.edge[r].colour;
  if (Pos_submaze_exit(here.maze, here.node).maze == nullptr) return colours;
  const MazeNode &holder = maze_nodes(here.maze->parent)[here.maze->parentnode];
  colours.colour[colours.count++] = holder.edge[here.node].colour;
  return colours;
}

void collect_node(Pos here, const uint32_t *colours, GrowList *streams, Box *box) {
  const Vec3 p = Pos_position(here);
  const EdgeAngleRec *recs = edge_angles_at(here);
  const uint32_t own = edge_colour(colours[0], here, Pos_null);
  Pos ends[pos_max_edges];
  for (int32_t e = Pos_alledges(here.maze, here.node, ends, nullptr) - 1; e >= 0; e--) {
    const EdgeAngleRec &rec = recs[e];
    append_row(&streams[1], wedge(p, rec, own, box));
    if (!Pos_before(here, ends[e]) || rec.backindex < 0) continue; // no corners without a way back
    append_row(&streams[0],
               road(p, Pos_position(ends[e]), rec, edge_angles_at(ends[e])[rec.backindex],
                    here.maze->halfwidth, edge_colour(colours[1 + e], here, ends[e]), box));
  }
}

void collect(const CollectInput &input, GrowList *streams, Box *box) {
  const uint32_t *deferred = input.colours;
  each_plain_node(input, [&](Pos here, const MazeNode &node) {
    const NodeColours now = node_colours(here, node);
    collect_node(here, deferred != nullptr ? deferred : now.colour, streams, box);
    if (deferred != nullptr) deferred += now.count;
  });
}

// Only colours can change before the angles are needed; see edge_angles_defer.
void defer(const CollectInput &input, GrowList *colours, Box *box) {
  double halfwidth = input.maze->halfwidth;
  edge_angles_defer(input.maze);
  each_plain_node(input, [&](Pos here, const MazeNode &node) {
    const NodeColours kept = node_colours(here, node);
    GrowList_append_many(colours, kept.colour, kept.count);
    box_add(box, node_position(node));
    PosEdge edges[pos_max_edges];
    const int32_t count = Pos_first_end_edges(here.maze, here.node, true, edges);
    for (int32_t e = 0; e < count; e++) {
      box_add(box, Pos_position(edges[e].end));
      halfwidth = std::max(halfwidth, edges[e].end.maze->halfwidth);
    }
  });
  const double reach = edge_angles_max_reach * halfwidth;
  box_widen(box, {reach, reach, 0});
}

void plate_vertex(const Corner &corner, float angle) {
  glTexCoord3f(corner.s, corner.t, angle);
  send_vertex(corner.place);
}

void draw_roads(const GrowList &roads, uint32_t first, uint32_t end, double) {
  for (uint32_t i = first; i < end; i++) {
    const Road &r = rows<Road>(roads)[i];
    gfx_set_colour(r.colour);
    send_normal(r.normal);
    for (const Corner &corner : r.corners)
      plate_vertex(corner, r.angle);
  }
}

void draw_wedges(const GrowList &wedges, uint32_t first, uint32_t end, double) {
  glNormal3f(0, 0, 1);
  for (uint32_t i = first; i < end; i++) {
    const Wedge &w = rows<Wedge>(wedges)[i];
    gfx_set_colour(w.colour);
    plate_vertex({0, 0, w.centre}, 0);
    for (const Corner &corner : w.corners)
      plate_vertex(corner, 0);
  }
}

// Draws all roads of a maze before its hubs.
constexpr PlotBatch gantry_batch = {
    .name = attachment_gantry,
    .collect = collect,
    .defer = defer,
    .streams = {{sizeof(Road), GL_QUADS, draw_roads}, {sizeof(Wedge), GL_TRIANGLES, draw_wedges}},
    .colours_per_node = 4,
    .passes = 2,
    .chunk_nodes = chunk_nodes};

void bind_textures() {
  gl.active_texture(GL_TEXTURE1);
  glBindTexture(GL_TEXTURE_2D, normal_texture);
  gl.active_texture(GL_TEXTURE0);
  glBindTexture(GL_TEXTURE_2D, colour_texture);
}

void use_gantry_program(const View &view, int32_t light) {
  program_use(gantry_program, view.projection);
  program_set_int(gantry_program, "tex", 0);
  program_set_int(gantry_program, "tnorm", 1);
  program_set_light(gantry_program, view.followed + Vec3{0, 0, light_height},
                    light != 0 ? light_brightness : 0);
}

void build_resources() {
  if (gantry_program == 0)
    gantry_program =
        program_join(nullptr, shader_gantry_vertex, shader_lighting, shader_gantry_fragment);
  if (colour_texture == 0) colour_texture = gantry_texture(0);
  if (normal_texture == 0) normal_texture = gantry_texture(1);
}

} // namespace

void gantry_road_quads(Maze *maze) {
  draw_cache_draw_immediate(maze, gantry_batch, 0, true, nullptr);
}

void gantry_hub_triangles(Maze *maze) {
  draw_cache_draw_immediate(maze, gantry_batch, 1, true, nullptr);
}

void gantry_list_call(Maze *maze) {
  draw_cache_draw(maze, gantry_batch, every_pass, true, view_current());
}

void gantry_plot(Maze *root, const World *world, int32_t light) {
  build_resources();
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  bind_textures();
  use_gantry_program(view_of(world), light);
  gantry_list_call(root);
  gl.use_program(0);
  glDisable(GL_BLEND);
}
