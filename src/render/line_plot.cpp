#include "render/line_plot.h"

#include <numbers>
#include <string>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"
#include "render/gl/age_colour.h"
#include "render/gl/edge_colour.h"
#include "render/gl/immediate.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/maze_label.h"
#include "render/plot_switches.h"
#include "render/shader_text.h"
#include "support/colour.h"

namespace {

constexpr double widening = 0.005;   // of ribbons and discs on each side, per unit of distance
constexpr int32_t chunk_nodes = 128; // more lists slow each frame, longer lists slow each step

enum Stream { ribbons, discs, cross_level_ends };

GLuint edge_programs[2][2]; // by age_colour_light and by plot_roamers
GLuint node_programs[2][2];

// An edge that this maze draws, since its end p comes first (Pos_before).
struct Ribbon {
  Vec3f p, q, to_p;
  float time; // of the user's last crossing; negative: never
  uint32_t colour;
  float roamer; // the time of a Roamer
};

struct Disc {
  Vec3f centre;
  float time; // of the user's last arrival; negative: never
  uint32_t colour;
  float roamer; // the time of a Roamer
};

static_assert(sizeof(Ribbon) == 48 && sizeof(Disc) == 24); // no padding

void add(Box *box, Vec3f place) {
  box_add(box, {static_cast<double>(place.x), static_cast<double>(place.y),
                static_cast<double>(place.z)});
}

void collect_ribbons(Pos here, bool all_levels, GrowList *streams, Box *box) {
  const Vec3 p = Pos_position(here);
  PosEdge edges[pos_max_edges];
  const int32_t count = Pos_first_end_edges(here.maze, here.node, all_levels, edges);
  for (int32_t e = 0; e < count; e++) {
    const auto &[end, row, index] = edges[e];
    const Vec3 q = Pos_position(end);
    const Ribbon ribbon = {rounded(p),
                           rounded(q),
                           rounded(p - q),
                           static_cast<float>(row->usertime),
                           edge_colour(row->colour, here, end),
                           static_cast<float>(row->roamertime)};
    append_row(&streams[ribbons], ribbon);
    if (end.maze != here.maze) append_row(&streams[cross_level_ends], end);
    add(box, ribbon.q);
  }
}

void collect(const CollectInput &input, GrowList *streams, Box *box) {
  each_plain_node(input, [&](Pos here, const MazeNode &node) {
    collect_ribbons(here, input.all_levels, streams, box);
    const Disc disc = {rounded(node_position(node)), static_cast<float>(node.self.usertime),
                       edge_colour(node.self.colour, here, Pos_null),
                       static_cast<float>(node.self.roamertime)};
    append_row(&streams[discs], disc);
    add(box, disc.centre);
  });
}

// The fourth coordinate is a corner code: 0 and 1 are the two sides at q, 2 and 3 those at p.
void send_corner(Vec3f place, float code) {
  glVertex4f(place.x, place.y, place.z, code);
}

void draw_ribbons(const GrowList &list, uint32_t first, uint32_t end, double halfwidth) {
  for (uint32_t i = first; i < end; i++) {
    const Ribbon &r = rows<Ribbon>(list)[i];
    gfx_set_colour(r.colour);
    send_normal(r.to_p);
    if (plot_roamers)
      glTexCoord3f(r.time, static_cast<float>(halfwidth), r.roamer);
    else
      glTexCoord2f(r.time, static_cast<float>(halfwidth));
    send_corner(r.q, 0);
    send_corner(r.p, 2);
    send_corner(r.p, 3);
    send_corner(r.q, 1);
  }
}

// The alpha channel passes the time of the last arrival to the shader.
void draw_disc(const Disc &disc, double halfwidth) {
  glColor4f(static_cast<float>(colour_red(disc.colour)) / 255.0F,
            static_cast<float>(colour_green(disc.colour)) / 255.0F,
            static_cast<float>(colour_blue(disc.colour)) / 255.0F, disc.time);
  if (plot_roamers) send_normal({disc.roamer, 0, 0});
  send_shader_quad(disc.centre, halfwidth);
}

void draw_discs(const GrowList &list, uint32_t first, uint32_t end, double halfwidth) {
  for (uint32_t i = first; i < end; i++)
    draw_disc(rows<Disc>(list)[i], halfwidth);
}

// A disc's square extends half its diagonal beyond its centre, a ribbon extends less. Both widen
// with their distance.
double margin(const Box &box, double halfwidth, Vec3 camera) {
  return std::numbers::sqrt2 * (halfwidth + widening * box_max_distance(box, camera));
}

// The text that the vertex shaders share.
std::string shared_text() {
  const std::string ages = age_colour_light ? shader_agecolour_light : shader_agecolour;
  return plot_roamers ? ages + shader_roamers : ages;
}

// Builds the program when it is first used.
GLuint begin_pass(GLuint programs[2][2], const char *vertex, const char *fragment,
                  const View &view) {
  GLuint &program = programs[age_colour_light ? 1 : 0][plot_roamers ? 1 : 0];
  if (program == 0) program = program_join(shared_text().c_str(), vertex, nullptr, fragment);
  program_use(program, view.projection);
  program_set_vec3(program, "o", view.camera);
  program_set_float(program, "t", view.world->time);
  return program;
}

void draw_marker(const View &view) {
  const Disc marker = {rounded(view.followed), static_cast<float>(view.world->time), colour_white,
                       static_cast<float>(time_never)};
  glBegin(GL_QUADS);
  draw_disc(marker, view.world->cur.maze->halfwidth);
  glEnd();
}

} // namespace

const PlotBatch line_batch = {.name = attachment_line_lists,
                              .collect = collect,
                              .streams = {{sizeof(Ribbon), GL_QUADS, draw_ribbons, sizeof(float)},
                                          {sizeof(Disc), GL_QUADS, draw_discs, sizeof(float)},
                                          {sizeof(Pos), 0, nullptr, 0}},
                              .passes = 2,
                              .chunk_nodes = chunk_nodes,
                              .renews_touched = true,
                              .end_stream = cross_level_ends,
                              .margin = margin};

void line_edge_list(Maze *maze, int32_t all_levels) {
  glBegin(GL_QUADS);
  draw_cache_draw_immediate(maze, line_batch, ribbons, all_levels != 0, nullptr);
  glEnd();
}

void line_node_list(Maze *maze) {
  glBegin(GL_QUADS);
  draw_cache_draw_immediate(maze, line_batch, discs, false, nullptr);
  glEnd();
}

void line_lists_call(Maze *maze, int32_t which, int32_t all_levels) {
  draw_cache_draw(maze, line_batch, which, all_levels != 0, view_current());
}

void line_edges_pass(Maze *root, const World *world, int32_t all_levels) {
  const View &view = view_of(world);
  const GLuint program = begin_pass(edge_programs, shader_edge_vertex, shader_edge_fragment, view);
  program_set_float(program, "r0", -root->halfwidth);
  program_set_float(program, "r1", root->halfwidth);
  line_lists_call(root, ribbons, all_levels);
  gl.use_program(0);
}

void line_nodes_pass(Maze *root, const World *world, int32_t all_levels) {
  const View &view = view_of(world);
  begin_pass(node_programs, shader_node_vertex, shader_node_fragment, view);
  line_lists_call(root, discs, all_levels);
  draw_marker(view);
  gl.use_program(0);
}

void line_plot(const World *world) {
  if (world->root->name != nullptr) maze_label(world->root);
  line_edges_pass(world->root, world, 1);
  line_nodes_pass(world->root, world, 1);
}
