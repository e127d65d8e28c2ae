#include "render/line_plot.h"

#include "gfx/gl.h"
#include "render/line_lists.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"
#include "support/colour.h"
#include "world/move.h"

namespace {

GLuint edge_program;
GLuint node_program;

void begin_pass(GLuint program, const World *world) {
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  gl2.use_program(program);
  gl2.uniform_matrix_4fv(gl2.get_uniform_location(program, "proj"), 1, 0, projection);
  gl2.uniform_3f(gl2.get_uniform_location(program, "o"), static_cast<float>(world->camera.x),
                 static_cast<float>(world->camera.y), static_cast<float>(world->camera.z));
  gl2.uniform_1f(gl2.get_uniform_location(program, "t"), static_cast<float>(world->time));
}

GLuint age_program(const char *vertex, const char *fragment) {
  const char *const vertex_strings[] = {shader_agecolour, vertex};
  return program_build(vertex_strings, 2, &fragment, 1, nullptr, nullptr, nullptr);
}

void draw_marker(const World *world) {
  const LineDisc marker = {rounded(World_follow_point(world)), static_cast<float>(world->time),
                           colour_white};
  glBegin(GL_QUADS);
  line_draw_disc(marker, world->cur.maze->halfwidth);
  glEnd();
}

} // namespace

void line_edge_list(Maze *maze, int32_t all_levels) {
  glBegin(GL_QUADS);
  maze_list_emit(maze, line_kind, 0, all_levels);
  glEnd();
}

void line_node_list(Maze *maze) {
  glBegin(GL_QUADS);
  maze_list_emit(maze, line_kind, 1, 0);
  glEnd();
}

void line_lists_call(Maze *maze, int32_t which, int32_t all_levels, const World *world) {
  maze_list_call(maze, line_kind, which, all_levels, world);
}

void line_edges_pass(Maze *root, const World *world, int32_t all_levels) {
  if (edge_program == 0) edge_program = age_program(shader_edge_vertex, shader_edge_fragment);
  begin_pass(edge_program, world);
  const auto halfwidth = static_cast<float>(root->halfwidth);
  gl2.uniform_1f(gl2.get_uniform_location(edge_program, "r0"), -halfwidth);
  gl2.uniform_1f(gl2.get_uniform_location(edge_program, "r1"), halfwidth);
  line_lists_call(root, 0, all_levels, world);
  gl2.use_program(0);
}

void line_nodes_pass(Maze *root, const World *world, int32_t all_levels) {
  if (node_program == 0) node_program = age_program(shader_node_vertex, shader_node_fragment);
  begin_pass(node_program, world);
  line_lists_call(root, 1, all_levels, world);
  draw_marker(world);
  gl2.use_program(0);
}
