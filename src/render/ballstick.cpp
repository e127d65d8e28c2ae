#include "render/ballstick.h"

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"
#include "render/gl/draw_cache.h"
#include "render/gl/edge_colour.h"
#include "render/gl/immediate.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/shader_text.h"

namespace {

constexpr int32_t chunk_nodes = 256;

constexpr double marker_size = 1.5; // in half-widths of the user's level
constexpr double light_brightness = 5.0;

GLuint ball_program;
GLuint ball_unlit_program;
GLuint stick_program;

struct Ball {
  Vec3f centre;
  uint32_t colour;
};

// An edge that this maze draws, since its end p comes first (Pos_before).
struct Stick {
  Vec3f p, to_q;
  uint32_t colour;
};

static_assert(sizeof(Ball) == 16 && sizeof(Stick) == 28); // no padding

void collect_balls(const CollectInput &input, GrowList *streams, Box *box) {
  each_plain_node(input, [&](Pos here, const MazeNode &node) {
    const Ball ball = {rounded(node_position(node)), edge_colour(node.self.colour, here, Pos_null)};
    append_row(&streams[0], ball);
    box_add_ball(box, node_position(node), here.maze->halfwidth);
  });
}

void node_sticks(Pos here, GrowList *sticks, Box *box) {
  const Vec3 p = Pos_position(here);
  PosEdge edges[pos_max_edges];
  const int32_t count = Pos_first_end_edges(here.maze, here.node, true, edges);
  if (count > 0) box_add_ball(box, p, here.maze->halfwidth);
  for (int32_t e = 0; e < count; e++) {
    const auto &[end, row, index] = edges[e];
    const Vec3 q = Pos_position(end);
    const Stick stick = {rounded(p), rounded(q - p), edge_colour(row->colour, here, end)};
    append_row(sticks, stick);
    box_add_ball(box, q, here.maze->halfwidth);
  }
}

void collect_sticks(const CollectInput &input, GrowList *streams, Box *box) {
  each_plain_node(input, [&](Pos here, const MazeNode &) { node_sticks(here, &streams[0], box); });
}

void draw_balls(const GrowList &balls, uint32_t first, uint32_t end, double radius) {
  for (uint32_t i = first; i < end; i++) {
    const Ball &ball = rows<Ball>(balls)[i];
    gfx_set_colour(ball.colour);
    send_shader_quad(ball.centre, radius);
  }
}

void draw_sticks(const GrowList &sticks, uint32_t first, uint32_t end, double radius) {
  for (uint32_t i = first; i < end; i++) {
    const Stick &stick = rows<Stick>(sticks)[i];
    gfx_set_colour(stick.colour);
    send_normal(stick.to_q);
    send_shader_quad(stick.p, radius);
  }
}

constexpr PlotBatch ball_batch = {.name = attachment_balls,
                                  .collect = collect_balls,
                                  .streams = {{sizeof(Ball), GL_QUADS, draw_balls}},
                                  .chunk_nodes = chunk_nodes};

// A stick's quad extends far beyond it, also through planes of depth that the stick doesn't meet.
constexpr PlotBatch stick_batch = {.name = attachment_sticks,
                                   .collect = collect_sticks,
                                   .streams = {{sizeof(Stick), GL_QUADS, draw_sticks}},
                                   .chunk_nodes = chunk_nodes,
                                   .cull_planes = frustum_side_planes};

void draw_pass(GLuint program, const PlotBatch &batch, Maze *root, const View &view,
               double brightness) {
  program_use(program, view.projection);
  program_set_light(program, view.followed, brightness);
  draw_cache_draw(root, batch, 0, true, view);
}

// The marker is the user's light itself, or is lit by the fixed lights alone. The program of the
// balls is current before.
void draw_marker(const View &view, bool light) {
  if (light) program_use(ball_unlit_program, view.projection);
  glBegin(GL_QUADS);
  glColor3f(1, 1, 1);
  send_shader_quad(rounded(view.followed), marker_size * view.world->cur.maze->halfwidth);
  glEnd();
}

void build_programs() {
  ball_program = program_join(nullptr, shader_ball_vertex, shader_lighting, shader_ball_fragment);
  ball_unlit_program =
      program_join(nullptr, shader_ball_vertex, shader_lighting, shader_ball_unlit_fragment);
  stick_program =
      program_join(nullptr, shader_stick_vertex, shader_lighting, shader_stick_fragment);
}

} // namespace

void ballstick_plot(Maze *root, const World *world, int32_t light) {
  const View &view = view_of(world);
  const double brightness = light != 0 ? light_brightness : 0.0;
  if (ball_program == 0) build_programs();
  draw_pass(ball_program, ball_batch, root, view, brightness);
  draw_marker(view, light != 0);
  draw_pass(stick_program, stick_batch, root, view, brightness);
  gl.use_program(0);
}
