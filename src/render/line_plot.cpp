#include "render/line_plot.h"

#include "gfx/gl.h"
#include "render/line_lists.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"
#include "render/sight.h"
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

void call_tree(const LineSight &sight, LineLists *lists, int32_t which) {
  line_lists_draw(lists, which, sight);
  for (uint32_t i = 0; i < lists->below.count; i++) {
    const LineBelow &below = rows<LineBelow>(lists->below)[i];
    if (line_may_see(sight, below.bounds)) call_tree(sight, below.lists, which);
  }
}

void draw_marker(const World *world) {
  const Vec3 p = World_follow_point(world);
  const LineDisc marker = {
      {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)},
      static_cast<float>(world->time),
      colour_white};
  line_draw_discs(&marker, 1, static_cast<float>(world->cur.maze->halfwidth));
}

} // namespace

void line_edge_list(Maze *maze, int32_t all_levels) {
  GrowList ribbons, far_ends;
  Box box = box_empty;
  GrowList_init(&ribbons, sizeof(LineRibbon));
  GrowList_init(&far_ends, sizeof(Pos));
  line_collect_ribbons(maze, 0, maze_count(maze), all_levels, &ribbons, &far_ends, &box);
  line_draw_ribbons(rows<LineRibbon>(ribbons), ribbons.count, static_cast<float>(maze->halfwidth));
  GrowList_free(&ribbons);
  GrowList_free(&far_ends);
}

void line_node_list(Maze *maze) {
  GrowList discs;
  Box box = box_empty;
  GrowList_init(&discs, sizeof(LineDisc));
  line_collect_discs(maze, 0, maze_count(maze), &discs, &box);
  line_draw_discs(rows<LineDisc>(discs), discs.count, static_cast<float>(maze->halfwidth));
  GrowList_free(&discs);
}

void line_lists_call(Maze *maze, int32_t which, int32_t all_levels, Vec3 camera) {
  LineLists *lists = line_lists(maze, all_levels);
  const LineSight sight = {sight_now(), camera, maze->halfwidth};
  if (all_levels == 0) {
    line_lists_draw(lists, which, sight);
  } else if (line_may_see(sight, lists->all)) {
    call_tree(sight, lists, which);
  }
}

void line_edges_pass(Maze *root, const World *world, int32_t all_levels) {
  if (edge_program == 0) edge_program = age_program(shader_edge_vertex, shader_edge_fragment);
  begin_pass(edge_program, world);
  const auto halfwidth = static_cast<float>(root->halfwidth);
  gl2.uniform_1f(gl2.get_uniform_location(edge_program, "r0"), -halfwidth);
  gl2.uniform_1f(gl2.get_uniform_location(edge_program, "r1"), halfwidth);
  line_lists_call(root, 0, all_levels, world->camera);
  gl2.use_program(0);
}

void line_nodes_pass(Maze *root, const World *world, int32_t all_levels) {
  if (node_program == 0) node_program = age_program(shader_node_vertex, shader_node_fragment);
  begin_pass(node_program, world);
  line_lists_call(root, 1, all_levels, world->camera);
  draw_marker(world);
  gl2.use_program(0);
}
