#include "render/ballstick.h"

#include "gfx/gl.h"
#include "maze/pos.h"
#include "render/edge_colour.h"
#include "render/maze_list.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"
#include "support/colour.h"
#include "world/move.h"

namespace {

constexpr int32_t chunk_nodes = 256;

constexpr double marker_size = 1.5; // in half-widths of the user's level
constexpr float light_colour = 5.0F;

GLuint ball_program;
GLuint ball_unlit_program;
GLuint stick_program;

GLuint body_program(const char *vertex, const char *fragment) {
  const char *const fragment_strings[] = {shader_lighting, fragment};
  return program_build(&vertex, 1, fragment_strings, 2, nullptr, nullptr, nullptr);
}

struct Ball {
  Vec3f centre;
  uint32_t colour;
};

// An edge of which one maze has the lesser end p; `axis` is q - p.
struct Stick {
  Vec3f p, axis;
  uint32_t colour;
};

static_assert(sizeof(Ball) == 16 && sizeof(Stick) == 28); // no padding

void collect_balls(const MazeRun &run, GrowList *parts, Box *box) {
  for (int32_t i = run.end - 1; i >= run.first; i--) {
    const MazeNode &node = maze_nodes(run.maze)[i];
    if (node.submaze != nullptr) continue;
    const Ball ball = {rounded(node_position(node)),
                       edge_colour(node.self.colour, {run.maze, i}, Pos_null)};
    GrowList_append(&parts[0], &ball);
    Box_add_ball(box, node_position(node), run.maze->halfwidth);
  }
}

// The sticks of a plain node, of which it is the lesser end.
void node_sticks(Pos here, GrowList *sticks, Box *box) {
  const Vec3 p = Pos_position(here);
  Pos ends[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  for (int32_t e = Pos_alledges(here.maze, here.node, ends, edges) - 1; e >= 0; e--) {
    if (!Pos_before(here, ends[e])) continue;
    const Vec3 q = Pos_position(ends[e]);
    const Stick stick = {rounded(p), rounded(q - p), edge_colour(edges[e].colour, here, ends[e])};
    GrowList_append(sticks, &stick);
    Box_add_ball(box, p, here.maze->halfwidth);
    Box_add_ball(box, q, here.maze->halfwidth);
  }
}

void collect_sticks(const MazeRun &run, GrowList *parts, Box *box) {
  for (int32_t i = run.end - 1; i >= run.first; i--) {
    if (maze_nodes(run.maze)[i].submaze == nullptr) node_sticks({run.maze, i}, &parts[0], box);
  }
}

// The quad that the shaders lay over a ball, or over a stick that begins at `place`.
void body(Vec3f place, double radius) {
  glTexCoord4f(place.x, place.y, place.z, static_cast<float>(radius));
  glVertex2f(-1, -1);
  glVertex2f(-1, 1);
  glVertex2f(1, 1);
  glVertex2f(1, -1);
}

void set_colour(uint32_t colour) {
  glColor4ub(colour_red(colour), colour_green(colour), colour_blue(colour), 255);
}

void draw_balls(const GrowList &balls, uint32_t first, uint32_t end, double radius) {
  for (uint32_t i = first; i < end; i++) {
    const Ball &ball = rows<Ball>(balls)[i];
    set_colour(ball.colour);
    body(ball.centre, radius);
  }
}

void draw_sticks(const GrowList &sticks, uint32_t first, uint32_t end, double radius) {
  for (uint32_t i = first; i < end; i++) {
    const Stick &stick = rows<Stick>(sticks)[i];
    set_colour(stick.colour);
    glNormal3f(stick.axis.x, stick.axis.y, stick.axis.z);
    body(stick.p, radius);
  }
}

constexpr MazeListKind ball_kind = {.name = "ballstick_ballslist",
                                    .collect = collect_balls,
                                    .parts = {{sizeof(Ball), GL_QUADS, draw_balls}},
                                    .chunk = chunk_nodes};

// A stick's quad reaches far beyond it, through planes of depth too that the stick doesn't meet.
constexpr MazeListKind stick_kind = {.name = "ballstick_stickslist",
                                     .collect = collect_sticks,
                                     .parts = {{sizeof(Stick), GL_QUADS, draw_sticks}},
                                     .chunk = chunk_nodes,
                                     .planes = sight_sides};

void use_program(GLuint program, const float *projection) {
  gl2.use_program(program);
  gl2.uniform_matrix_4fv(gl2.get_uniform_location(program, "proj"), 1, 0, projection);
}

void use_lit_program(GLuint program, const float *projection, Vec3 lamp, float brightness) {
  use_program(program, projection);
  gl2.uniform_3f(gl2.get_uniform_location(program, "lpos0"), static_cast<float>(lamp.x),
                 static_cast<float>(lamp.y), static_cast<float>(lamp.z));
  gl2.uniform_3f(gl2.get_uniform_location(program, "lcol0"), brightness, brightness, brightness);
}

// Shaded by the fixed lights alone, or the lamp itself.
void draw_marker(const World *world, Vec3 place, const float *projection, int32_t light) {
  use_program(light != 0 ? ball_unlit_program : ball_program, projection);
  glBegin(GL_QUADS);
  glColor3f(1, 1, 1);
  body(rounded(place), marker_size * world->cur.maze->halfwidth);
  glEnd();
}

} // namespace

void ballstick_plot(Maze *root, const World *world, int32_t light) {
  if (ball_program == 0) {
    ball_program = body_program(shader_ball_vertex, shader_ball_fragment);
    ball_unlit_program = body_program(shader_ball_vertex, shader_ball_unlit_fragment);
    stick_program = body_program(shader_stick_vertex, shader_stick_fragment);
  }
  const Vec3 user = World_follow_point(world);
  const float brightness = light != 0 ? light_colour : 0.0F;
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  use_lit_program(ball_program, projection, user, brightness);
  maze_list_call(root, ball_kind, 0, 1, world);
  draw_marker(world, user, projection, light);
  use_lit_program(stick_program, projection, user, brightness);
  maze_list_call(root, stick_kind, 0, 1, world);
  gl2.use_program(0);
}
