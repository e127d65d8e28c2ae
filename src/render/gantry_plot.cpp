#include "render/gantry_plot.h"

#include <cmath>

#include "gfx/gl.h"
#include "maze/pos.h"
#include "render/edge_angles.h"
#include "render/edge_colour.h"
#include "render/gantry_texture.h"
#include "render/maze_list.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"
#include "support/colour.h"
#include "world/move.h"

namespace {

constexpr int32_t chunk_nodes = 256;

constexpr double repeats = 20.0;         // of the texture in a world unit
constexpr double light_height = 1.0;     // of the user's light above him, world units
constexpr float light_brightness = 5.0F; // of each channel, at a distance of 1

GLuint gantry_program;
GLuint colour_texture;
GLuint normal_texture;

// Of a road that goes along d and lies level from side to side; upward unless the road is upright,
// which has none.
Vec3 road_normal(Vec3 d) {
  const Vec3 way = level_direction(d);
  return unit(cross({way.y, -way.x, 0}, d));
}

// The direction of d in the plane across the normal's main axis. The shader chooses that axis anew,
// from the normal as a float, so the choice is made on the same numbers here.
double texture_angle(Vec3 normal, Vec3 d) {
  const float x = std::abs(static_cast<float>(normal.x));
  const float y = std::abs(static_cast<float>(normal.y));
  const float z = std::abs(static_cast<float>(normal.z));
  if (x >= y && x >= z) return std::atan2(d.z, d.y);
  if (z <= y) return std::atan2(d.x, d.z);
  return std::atan2(d.y, d.x);
}

struct Corner {
  float s, t; // of the texture
  Vec3f place;
};

// The plate along an edge of which one maze has the lesser end.
struct Road {
  Vec3f normal;
  float angle; // of its texture
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
  Box_add(box, place);
  return {static_cast<float>(repeats * s), static_cast<float>(repeats * t), rounded(place)};
}

// From p to q with the corners `here` at p and `there`, as seen from there, at q.
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

const EdgeAngleRec *node_recs(const EdgeAngleRec *recs, int32_t node) {
  return recs + static_cast<size_t>(node) * pos_max_edges;
}

// The texture lies in a hub as on a flat floor, at the scale of the roads.
Wedge wedge(Vec3 p, const EdgeAngleRec &rec, uint32_t colour, Box *box) {
  const Vec3 right = rec.corner2, left = rec.corner1;
  Box_add(box, p);
  return {rounded(p),
          colour,
          {corner(right.x, right.y, p + right, box), corner(left.x, left.y, p + left, box)}};
}

// `recs` are those of the whole maze.
void collect_node(Pos here, const EdgeAngleRec *recs, GrowList *parts, Box *box) {
  const Vec3 p = Pos_position(here);
  const uint32_t own = edge_colour(maze_nodes(here.maze)[here.node].self.colour, here, Pos_null);
  Pos ends[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  for (int32_t e = Pos_alledges(here.maze, here.node, ends, edges) - 1; e >= 0; e--) {
    const EdgeAngleRec &rec = node_recs(recs, here.node)[e];
    const Wedge plate = wedge(p, rec, own, box);
    GrowList_append(&parts[1], &plate);
    if (!Pos_before(here, ends[e]) || rec.backindex < 0) continue; // no way back, no corners
    const EdgeAngleRec *there = ends[e].maze == here.maze ? recs : edgeanglerecs(ends[e].maze);
    const Road way =
        road(p, Pos_position(ends[e]), rec, node_recs(there, ends[e].node)[rec.backindex],
             here.maze->halfwidth, edge_colour(edges[e].colour, here, ends[e]), box);
    GrowList_append(&parts[0], &way);
  }
}

void collect(const MazeRun &run, GrowList *parts, Box *box) {
  const EdgeAngleRec *recs = edgeanglerecs(run.maze);
  for (int32_t i = run.end - 1; i >= run.first; i--)
    if (maze_nodes(run.maze)[i].submaze == nullptr) collect_node({run.maze, i}, recs, parts, box);
}

void set_colour(uint32_t colour) {
  glColor4ub(colour_red(colour), colour_green(colour), colour_blue(colour), 255);
}

void plate_vertex(const Corner &corner, float angle) {
  glTexCoord3f(corner.s, corner.t, angle);
  glVertex3f(corner.place.x, corner.place.y, corner.place.z);
}

void draw_roads(const GrowList &roads, uint32_t first, uint32_t end, double) {
  for (uint32_t i = first; i < end; i++) {
    const Road &r = rows<Road>(roads)[i];
    set_colour(r.colour);
    glNormal3f(r.normal.x, r.normal.y, r.normal.z);
    for (const Corner &corner : r.corners)
      plate_vertex(corner, r.angle);
  }
}

void draw_wedges(const GrowList &wedges, uint32_t first, uint32_t end, double) {
  glNormal3f(0, 0, 1);
  for (uint32_t i = first; i < end; i++) {
    const Wedge &w = rows<Wedge>(wedges)[i];
    set_colour(w.colour);
    plate_vertex({0, 0, w.centre}, 0);
    for (const Corner &corner : w.corners)
      plate_vertex(corner, 0);
  }
}

// All roads of a maze come before all its hubs.
constexpr MazeListKind kind = {
    .name = "gantrylist",
    .collect = collect,
    .parts = {{sizeof(Road), GL_QUADS, draw_roads}, {sizeof(Wedge), GL_TRIANGLES, draw_wedges}},
    .passes = 2,
    .chunk = chunk_nodes};

GLuint build_program() {
  const char *const fragment_strings[] = {shader_lighting, shader_gantry_fragment};
  return program_build(&shader_gantry_vertex, 1, fragment_strings, 2, nullptr, nullptr, nullptr);
}

void bind_textures() {
  gl2.active_texture(GL_TEXTURE1);
  glBindTexture(GL_TEXTURE_2D, normal_texture);
  gl2.active_texture(GL_TEXTURE0);
  glBindTexture(GL_TEXTURE_2D, colour_texture);
}

void set_uniforms(const World *world, int32_t light) {
  const auto location = [](const char *name) {
    return gl2.get_uniform_location(gantry_program, name);
  };
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  gl2.uniform_matrix_4fv(location("proj"), 1, 0, projection);
  gl2.uniform_1i(location("tex"), 0);
  gl2.uniform_1i(location("tnorm"), 1);
  const Vec3 user = World_follow_point(world);
  const float brightness = light != 0 ? light_brightness : 0;
  gl2.uniform_3f(location("lpos0"), static_cast<float>(user.x), static_cast<float>(user.y),
                 static_cast<float>(user.z + light_height));
  gl2.uniform_3f(location("lcol0"), brightness, brightness, brightness);
}

} // namespace

void gantry_road_quads(Maze *maze) {
  maze_list_emit(maze, kind, 0, 1);
}

void gantry_hub_triangles(Maze *maze) {
  maze_list_emit(maze, kind, 1, 1);
}

void gantry_list_call(Maze *maze) {
  maze_list_call(maze, kind, every_pass, 1, nullptr);
}

void gantry_plot(Maze *root, const World *world, int32_t light) {
  if (gantry_program == 0) gantry_program = build_program();
  if (colour_texture == 0) colour_texture = gantry_texture(0);
  if (normal_texture == 0) normal_texture = gantry_texture(1);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  bind_textures();
  gl2.use_program(gantry_program);
  set_uniforms(world, light);
  gantry_list_call(root);
  gl2.use_program(0);
  glDisable(GL_BLEND);
}
