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

void set_colour(uint32_t colour) {
  glColor4ub(colour_red(colour), colour_green(colour), colour_blue(colour), 255);
}

void set_normal(Vec3 normal) {
  glNormal3f(static_cast<float>(normal.x), static_cast<float>(normal.y),
             static_cast<float>(normal.z));
}

// `s` and `t` are world units along the plate, `angle` is that of the road.
void plate_vertex(double s, double t, double angle, Vec3 place, Box *box) {
  glTexCoord3f(static_cast<float>(repeats * s), static_cast<float>(repeats * t),
               static_cast<float>(angle));
  glVertex3f(static_cast<float>(place.x), static_cast<float>(place.y), static_cast<float>(place.z));
  Box_add(box, place);
}

// From p to q with the corners `here` at p and `there`, as seen from there, at q.
void road(Vec3 p, Vec3 q, const EdgeAngleRec &here, const EdgeAngleRec &there, double halfwidth,
          Box *box) {
  const Vec3 d = q - p;
  const double size = length(d);
  const Vec3 normal = road_normal(d);
  const double angle = texture_angle(normal, d);
  set_normal(normal);
  plate_vertex(here.trim1, halfwidth, angle, p + here.corner1, box);
  plate_vertex(here.trim2, -halfwidth, angle, p + here.corner2, box);
  plate_vertex(size - there.trim1, -halfwidth, angle, q + there.corner1, box);
  plate_vertex(size - there.trim2, halfwidth, angle, q + there.corner2, box);
}

const EdgeAngleRec *node_recs(Pos pos) {
  return edgeanglerecs(pos.maze) + static_cast<size_t>(pos.node) * pos_max_edges;
}

void node_roads(Pos here, Box *box) {
  Pos ends[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  const EdgeAngleRec *recs = node_recs(here);
  for (int32_t e = Pos_alledges(here.maze, here.node, ends, edges) - 1; e >= 0; e--) {
    const int32_t back = recs[e].backindex;
    if (!Pos_before(here, ends[e]) || back < 0) continue; // without a way back there are no corners
    set_colour(edge_colour(edges[e].colour, here, ends[e]));
    road(Pos_position(here), Pos_position(ends[e]), recs[e], node_recs(ends[e])[back],
         here.maze->halfwidth, box);
  }
}

// The texture lies in a hub as on a flat floor, at the scale of the roads.
void hub(Pos here, Box *box) {
  const Vec3 p = Pos_position(here);
  const EdgeAngleRec *recs = node_recs(here);
  Pos ends[pos_max_edges];
  set_colour(edge_colour(maze_nodes(here.maze)[here.node].self.colour, here, Pos_null));
  set_normal({0, 0, 1});
  for (int32_t e = Pos_alledges(here.maze, here.node, ends, nullptr) - 1; e >= 0; e--) {
    const Vec3 left = recs[e].corner1;
    const Vec3 right = recs[e].corner2;
    plate_vertex(0, 0, 0, p, box);
    plate_vertex(right.x, right.y, 0, p + right, box);
    plate_vertex(left.x, left.y, 0, p + left, box);
  }
}

// All roads come before all hubs.
void list_body(Maze *maze, int32_t, int32_t, const World *, Box *box) {
  glBegin(GL_QUADS);
  gantry_road_quads(maze, box);
  glEnd();
  glBegin(GL_TRIANGLES);
  gantry_hub_triangles(maze, box);
  glEnd();
}

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

void gantry_road_quads(Maze *maze, Box *box) {
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    if (maze_nodes(maze)[i].submaze == nullptr) node_roads({maze, i}, box);
  }
}

void gantry_hub_triangles(Maze *maze, Box *box) {
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    if (maze_nodes(maze)[i].submaze == nullptr) hub({maze, i}, box);
  }
}

void gantry_list_call(Maze *maze) {
  maze_list_call(maze, {"gantrylist", list_body, INT32_MAX, sight_planes}, nullptr);
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
