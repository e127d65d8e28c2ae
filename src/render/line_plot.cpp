#include "render/line_plot.h"

#include "gfx/gl.h"
#include "gfx/window.h"
#include "maze/attachment.h"
#include "maze/pos.h"
#include "render/edge_colour.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"
#include "support/colour.h"
#include "world/move.h"

namespace {

// The attachment "lists". The mazes below are kept with it, last holder first, so that a frame in
// which nothing changed walks no nodes.
struct LineLists {
  GLuint name[2]; // edges, nodes
  GrowList below; // of Maze *
};

constexpr const char *lists_name = "lists";

GLuint edge_program;
GLuint node_program;

// The context may be gone by the time a maze is destroyed, and its lists with it.
void lists_destroy(intptr_t data, Maze *) {
  auto *lists = reinterpret_cast<LineLists *>(data);
  for (const GLuint name : lists->name) {
    if (name != 0 && gfx_context_alive()) glDeleteLists(name, 1);
  }
  GrowList_free(&lists->below);
  delete lists;
}

LineLists *lists_make(Maze *maze, int32_t all_levels) {
  auto *lists = new LineLists{};
  for (int which = 0; which < 2; which++) {
    lists->name[which] = glGenLists(1);
    glNewList(lists->name[which], GL_COMPILE);
    if (which == 0) {
      line_edge_list(maze, all_levels);
    } else {
      line_node_list(maze);
    }
    glEndList();
  }
  GrowList_init(&lists->below, sizeof(Maze *));
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    Maze *submaze = maze_nodes(maze)[i].submaze;
    if (submaze != nullptr) GrowList_append(&lists->below, &submaze);
  }
  Attachment_add(maze, lists_name, reinterpret_cast<intptr_t>(lists), lists_destroy);
  return lists;
}

void vertex4(Vec3 place, float corner) {
  glVertex4f(static_cast<float>(place.x), static_cast<float>(place.y), static_cast<float>(place.z),
             corner);
}

// The fourth coordinate is a corner code: 0 and 1 the two sides at q, 2 and 3 those at p.
void ribbon(Vec3 p, Vec3 q, const MazeEdge &edge, uint32_t colour, double halfwidth) {
  const Vec3 axis = p - q;
  glColor3ub(colour_red(colour), colour_green(colour), colour_blue(colour));
  glNormal3f(static_cast<float>(axis.x), static_cast<float>(axis.y), static_cast<float>(axis.z));
  glTexCoord2f(static_cast<float>(edge.usertime), static_cast<float>(halfwidth));
  vertex4(q, 0);
  vertex4(p, 2);
  vertex4(p, 3);
  vertex4(q, 1);
}

// The alpha channel carries the time of the last arrival to the shader.
void disc(Vec3 centre, uint32_t colour, double time, double halfwidth) {
  glColor4f(static_cast<float>(colour_red(colour)) / 255.0F,
            static_cast<float>(colour_green(colour)) / 255.0F,
            static_cast<float>(colour_blue(colour)) / 255.0F, static_cast<float>(time));
  glTexCoord4f(static_cast<float>(centre.x), static_cast<float>(centre.y),
               static_cast<float>(centre.z), static_cast<float>(halfwidth));
  glVertex2f(-1, -1);
  glVertex2f(-1, 1);
  glVertex2f(1, 1);
  glVertex2f(1, -1);
}

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

} // namespace

void line_edge_list(Maze *maze, int32_t all_levels) {
  glBegin(GL_QUADS);
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    if (maze_nodes(maze)[i].submaze != nullptr) continue;
    const Pos here = {maze, i};
    const Vec3 p = Pos_position(here);
    Pos ends[pos_max_edges];
    MazeEdge edges[pos_max_edges];
    for (int32_t e = Pos_edges(maze, i, all_levels, ends, edges) - 1; e >= 0; e--) {
      if (!Pos_before(here, ends[e])) continue;
      ribbon(p, Pos_position(ends[e]), edges[e], edge_colour(edges[e].colour, here, ends[e]),
             maze->halfwidth);
    }
  }
  glEnd();
}

void line_node_list(Maze *maze) {
  glBegin(GL_QUADS);
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    const MazeNode &node = maze_nodes(maze)[i];
    if (node.submaze != nullptr) continue;
    disc(node_position(node), edge_colour(node.self.colour, {maze, i}, Pos_null),
         node.self.usertime, maze->halfwidth);
  }
  glEnd();
}

void line_lists_call(Maze *maze, int32_t which, int32_t all_levels) {
  auto *lists = reinterpret_cast<LineLists *>(Attachment_find(maze, lists_name));
  if (lists == nullptr) lists = lists_make(maze, all_levels);
  glCallList(lists->name[which]);
  if (all_levels == 0) return;
  for (uint32_t i = 0; i < lists->below.count; i++) {
    line_lists_call(rows<Maze *>(lists->below)[i], which, all_levels);
  }
}

void line_edges_pass(Maze *root, const World *world, int32_t all_levels) {
  if (edge_program == 0) edge_program = age_program(shader_edge_vertex, shader_edge_fragment);
  begin_pass(edge_program, world);
  const auto halfwidth = static_cast<float>(root->halfwidth);
  gl2.uniform_1f(gl2.get_uniform_location(edge_program, "r0"), -halfwidth);
  gl2.uniform_1f(gl2.get_uniform_location(edge_program, "r1"), halfwidth);
  line_lists_call(root, 0, all_levels);
  gl2.use_program(0);
}

void line_nodes_pass(Maze *root, const World *world, int32_t all_levels) {
  if (node_program == 0) node_program = age_program(shader_node_vertex, shader_node_fragment);
  begin_pass(node_program, world);
  line_lists_call(root, 1, all_levels);
  glBegin(GL_QUADS);
  disc(World_follow_point(world), colour_white, world->time, world->cur.maze->halfwidth);
  glEnd();
  gl2.use_program(0);
}
