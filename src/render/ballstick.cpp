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

// The quad that the shaders lay over a ball, or over a stick that begins at `place`.
void body(Vec3 place, double radius) {
  glTexCoord4f(static_cast<float>(place.x), static_cast<float>(place.y),
               static_cast<float>(place.z), static_cast<float>(radius));
  glVertex2f(-1, -1);
  glVertex2f(-1, 1);
  glVertex2f(1, 1);
  glVertex2f(1, -1);
}

void set_colour(uint32_t colour) {
  glColor4ub(colour_red(colour), colour_green(colour), colour_blue(colour), 255);
}

void ball_list(Maze *maze, int32_t first, int32_t end, const World *, Box *box) {
  glBegin(GL_QUADS);
  for (int32_t i = end - 1; i >= first; i--) {
    const MazeNode &node = maze_nodes(maze)[i];
    if (node.submaze != nullptr) continue;
    set_colour(edge_colour(node.self.colour, {maze, i}, Pos_null));
    body(node_position(node), maze->halfwidth);
    Box_add_ball(box, node_position(node), maze->halfwidth);
  }
  glEnd();
}

// The sticks of a plain node, of which it is the lesser end.
void node_sticks(Maze *maze, int32_t node, Box *box) {
  const Pos here = {maze, node};
  const Vec3 p = Pos_position(here);
  Pos ends[pos_max_edges];
  MazeEdge edges[pos_max_edges];
  for (int32_t e = Pos_alledges(maze, node, ends, edges) - 1; e >= 0; e--) {
    if (!Pos_before(here, ends[e])) continue;
    const Vec3 q = Pos_position(ends[e]), axis = q - p;
    set_colour(edge_colour(edges[e].colour, here, ends[e]));
    glNormal3f(static_cast<float>(axis.x), static_cast<float>(axis.y), static_cast<float>(axis.z));
    body(p, maze->halfwidth);
    Box_add_ball(box, p, maze->halfwidth);
    Box_add_ball(box, q, maze->halfwidth);
  }
}

void stick_list(Maze *maze, int32_t first, int32_t end, const World *, Box *box) {
  glBegin(GL_QUADS);
  for (int32_t i = end - 1; i >= first; i--) {
    if (maze_nodes(maze)[i].submaze == nullptr) node_sticks(maze, i, box);
  }
  glEnd();
}

constexpr MazeListKind balls = {"ballstick_ballslist", ball_list, chunk_nodes, sight_planes};

// A stick's quad reaches far beyond it, through planes of depth too that the stick doesn't meet.
constexpr MazeListKind sticks = {"ballstick_stickslist", stick_list, chunk_nodes, sight_sides};

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
  body(place, marker_size * world->cur.maze->halfwidth);
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
  maze_list_call(root, balls, world);
  draw_marker(world, user, projection, light);
  use_lit_program(stick_program, projection, user, brightness);
  maze_list_call(root, sticks, world);
  gl2.use_program(0);
}
