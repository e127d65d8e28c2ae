#include "plot_reference.h"

#include <cmath>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"
#include "render/ballstick.h"
#include "render/disc.h"
#include "render/edge_angles.h"
#include "render/fixed_plot.h"
#include "render/gantry_plot.h"
#include "render/gantry_texture.h"
#include "render/gl/edge_colour.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/gl/view.h"
#include "render/line_plot.h"
#include "render/plot_switches.h"
#include "render/shader_text.h"
#include "render/voronoi_geometry.h"
#include "render/voronoi_plot.h"
#include "render/voronoi_shapes.h"
#include "support/colour.h"
#include "world/move.h"

namespace {

// Attachments of their own, and those of the plots that go stale at the same time.
enum Kind { edges, nodes, balls, sticks, plates, cells };
constexpr const char *reference_name[] = {"reference edges",  "reference nodes",
                                          "reference balls",  "reference sticks",
                                          "reference plates", "reference cells"};
constexpr const char *plot_name[] = {attachment_line_lists, attachment_line_lists,
                                     attachment_balls,      attachment_sticks,
                                     attachment_gantry,     attachment_cell_list};

void list_destroy(intptr_t name, Maze *) {
  glDeleteLists(static_cast<GLuint>(name), 1);
}

const World *shown; // by the landscape

void landscape_marker() {
  const Vec3 p = World_follow_point(shown);
  fan_disc(p + 0.3 * unit(shown->camera - p), 0.12, colour_white, shown->camera);
}

void call_tree(Maze *maze, Kind kind, void (*compile)(Maze *)) {
  const char *name = reference_name[kind];
  auto list = static_cast<GLuint>(Attachment_find(maze, name));
  if (list == 0) {
    list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    compile(maze);
    glEndList();
    Attachment_add(maze, name, static_cast<intptr_t>(list), list_destroy);
  }
  glCallList(list);
  if (kind == cells && maze == shown->cur.maze) landscape_marker();
  for (int32_t i = maze_count(maze); i-- > 0;)
    if (maze_nodes(maze)[i].submaze) call_tree(maze_nodes(maze)[i].submaze, kind, compile);
}

void vertex4(Vec3 p, float w) {
  glVertex4f(static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z), w);
}

void compile_edges(Maze *maze) {
  glBegin(GL_QUADS);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    if (maze_nodes(maze)[i].submaze) continue;
    Pos ends[pos_max_edges];
    MazeEdge edges[pos_max_edges];
    for (int32_t e = Pos_alledges(maze, i, ends, edges); e-- > 0;) {
      if (!Pos_before({maze, i}, ends[e])) continue;
      const Vec3 p = Pos_position({maze, i}), q = Pos_position(ends[e]), axis = p - q;
      const uint32_t colour = edge_colour(edges[e].colour, {maze, i}, ends[e]);
      glColor3ub(colour_red(colour), colour_green(colour), colour_blue(colour));
      glNormal3f(static_cast<float>(axis.x), static_cast<float>(axis.y),
                 static_cast<float>(axis.z));
      glTexCoord2f(static_cast<float>(edges[e].usertime), static_cast<float>(maze->halfwidth));
      vertex4(q, 0);
      vertex4(p, 2);
      vertex4(p, 3);
      vertex4(q, 1);
    }
  }
  glEnd();
}

void quad(Vec3 p, double radius) {
  glTexCoord4f(static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z),
               static_cast<float>(radius));
  glVertex2f(-1, -1);
  glVertex2f(-1, 1);
  glVertex2f(1, 1);
  glVertex2f(1, -1);
}

void disc(Vec3 p, uint32_t colour, double time, double halfwidth) {
  glColor4f(static_cast<float>(colour_red(colour)) / 255.0F,
            static_cast<float>(colour_green(colour)) / 255.0F,
            static_cast<float>(colour_blue(colour)) / 255.0F, static_cast<float>(time));
  quad(p, halfwidth);
}

void compile_nodes(Maze *maze) {
  glBegin(GL_QUADS);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const MazeNode &node = maze_nodes(maze)[i];
    if (node.submaze) continue;
    disc(node_position(node), edge_colour(node.self.colour, {maze, i}, Pos_null),
         node.self.usertime, maze->halfwidth);
  }
  glEnd();
}

GLuint line_program(const char *vertex, const char *fragment) {
  const char *const strings[] = {shader_agecolour, vertex};
  return program_build(strings, 2, &fragment, 1, nullptr, nullptr, nullptr);
}

void use(GLuint program, const World *world) {
  const auto location = [program](const char *name) {
    return gl.get_uniform_location(program, name);
  };
  gl.use_program(program);
  gl.uniform_matrix_4fv(location("proj"), 1, 0, view_current().projection);
  gl.uniform_3f(location("o"), static_cast<float>(world->camera.x),
                static_cast<float>(world->camera.y), static_cast<float>(world->camera.z));
  gl.uniform_1f(location("t"), static_cast<float>(world->time));
  const auto halfwidth = static_cast<float>(world->root->halfwidth);
  gl.uniform_1f(location("r0"), -halfwidth);
  gl.uniform_1f(location("r1"), halfwidth);
}

void opaque(uint32_t colour) {
  glColor4ub(colour_red(colour), colour_green(colour), colour_blue(colour), 255);
}

void compile_balls(Maze *maze) {
  glBegin(GL_QUADS);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const MazeNode &node = maze_nodes(maze)[i];
    if (node.submaze) continue;
    opaque(edge_colour(node.self.colour, {maze, i}, Pos_null));
    quad(node_position(node), maze->halfwidth);
  }
  glEnd();
}

void compile_sticks(Maze *maze) {
  glBegin(GL_QUADS);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    if (maze_nodes(maze)[i].submaze) continue;
    Pos ends[pos_max_edges];
    MazeEdge rows[pos_max_edges];
    for (int32_t e = Pos_alledges(maze, i, ends, rows); e-- > 0;) {
      if (!Pos_before({maze, i}, ends[e])) continue;
      const Vec3 p = Pos_position({maze, i}), axis = Pos_position(ends[e]) - p;
      opaque(edge_colour(rows[e].colour, {maze, i}, ends[e]));
      glNormal3f(static_cast<float>(axis.x), static_cast<float>(axis.y),
                 static_cast<float>(axis.z));
      quad(p, maze->halfwidth);
    }
  }
  glEnd();
}

void plate_corner(double s, double t, double angle, Vec3 p) {
  glTexCoord3f(static_cast<float>(20 * s), static_cast<float>(20 * t), static_cast<float>(angle));
  glVertex3f(static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z));
}

void road(Vec3 p, Vec3 q, const EdgeAngleRec &r, const EdgeAngleRec &f, double w) {
  const Vec3 d = q - p, n = unit(cross(unit(Vec3{d.y, -d.x, 0}), d));
  const float x = std::abs(static_cast<float>(n.x)), y = std::abs(static_cast<float>(n.y)),
              z = std::abs(static_cast<float>(n.z));
  const double angle = x >= y && x >= z ? std::atan2(d.z, d.y)
                       : z <= y         ? std::atan2(d.x, d.z)
                                        : std::atan2(d.y, d.x);
  glNormal3f(static_cast<float>(n.x), static_cast<float>(n.y), static_cast<float>(n.z));
  plate_corner(r.trim1, w, angle, p + r.corner1);
  plate_corner(r.trim2, -w, angle, p + r.corner2);
  plate_corner(length(d) - f.trim1, -w, angle, q + f.corner1);
  plate_corner(length(d) - f.trim2, w, angle, q + f.corner2);
}

const EdgeAngleRec *recs(Pos p) {
  return edgeanglerecs(p.maze) + static_cast<size_t>(p.node) * pos_max_edges;
}

void roads(Pos here) {
  Pos ends[pos_max_edges];
  MazeEdge rows[pos_max_edges];
  for (int32_t e = Pos_alledges(here.maze, here.node, ends, rows); e-- > 0;) {
    const EdgeAngleRec &r = recs(here)[e];
    if (!Pos_before(here, ends[e]) || r.backindex < 0) continue;
    opaque(edge_colour(rows[e].colour, here, ends[e]));
    road(Pos_position(here), Pos_position(ends[e]), r, recs(ends[e])[r.backindex],
         here.maze->halfwidth);
  }
}

void hub(Pos here) {
  Pos ends[pos_max_edges];
  const Vec3 p = Pos_position(here);
  opaque(edge_colour(maze_nodes(here.maze)[here.node].self.colour, here, Pos_null));
  glNormal3f(0, 0, 1);
  for (int32_t e = Pos_alledges(here.maze, here.node, ends, nullptr); e-- > 0;) {
    const Vec3 left = recs(here)[e].corner1, right = recs(here)[e].corner2;
    plate_corner(0, 0, 0, p);
    plate_corner(right.x, right.y, 0, p + right);
    plate_corner(left.x, left.y, 0, p + left);
  }
}

void compile_plates(Maze *maze) {
  for (const auto draw : {roads, hub}) {
    glBegin(draw == hub ? GL_TRIANGLES : GL_QUADS);
    for (int32_t i = maze_count(maze); i-- > 0;)
      if (!maze_nodes(maze)[i].submaze) draw({maze, i});
    glEnd();
  }
}

using Shape = void (*)(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);

void compile_shape(Maze *maze, GLenum primitive, Shape shape) {
  ShapeList vertices;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const MazeNode &node = maze_nodes(maze)[i];
    if (!node.submaze)
      shape(&vertices, maze, i,
            visit_colour(node.self, {maze, i}, Pos_null, voronoi_mode < 5 ? shown : nullptr));
  }
  glBegin(primitive);
  for (const ShapeVertex &v : vertices) {
    glColor3ub(colour_red(v.colour), colour_green(v.colour), colour_blue(v.colour));
    glNormal3d(v.normal.x, v.normal.y, v.normal.z);
    glVertex3d(v.place.x, v.place.y, v.place.z);
  }
  glEnd();
}

void compile_cells(Maze *maze) {
  constexpr Shape shapes[] = {voronoi_outline, voronoi_box,      voronoi_box,
                              voronoi_terrain, voronoi_delaunay, voronoi_delaunay};
  if (!voronoi_is_attached(maze)) voronoi_build(maze, 1);
  if (voronoi_mode > 1) fixed_light_on();
  compile_shape(maze, voronoi_mode == 0 ? GL_LINES : GL_TRIANGLES, shapes[voronoi_mode]);
  if (voronoi_mode == 5) compile_shape(maze, GL_QUADS, voronoi_walls);
  if (voronoi_mode > 1) glDisable(GL_LIGHTING);
}

// A lit program, and its uniforms with the user's light off.
GLuint solid_program(const char *vertex, const char *fragment) {
  const char *const strings[] = {shader_lighting, fragment};
  return program_build(&vertex, 1, strings, 2, nullptr, nullptr, nullptr);
}

void use_solid(GLuint program, Vec3 light) {
  gl.use_program(program);
  gl.uniform_matrix_4fv(gl.get_uniform_location(program, "proj"), 1, 0, view_current().projection);
  gl.uniform_3f(gl.get_uniform_location(program, "lpos0"), static_cast<float>(light.x),
                static_cast<float>(light.y), static_cast<float>(light.z));
  gl.uniform_3f(gl.get_uniform_location(program, "lcol0"), 0, 0, 0);
}

void solid(uint32_t colour, int32_t by) {
  const uint32_t c = colour_adjust(colour, by, by, by);
  glColor3ub(colour_red(c), colour_green(c), colour_blue(c));
}

void vertex3(Vec3 p) {
  glVertex3f(static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z));
}

// A pass of the fixed plot over a maze: its edges as ribbons or as lines.
void fixed_edges(Maze *maze, const World *world, bool near) {
  glBegin(near ? GL_QUADS : GL_LINES);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const Vec3 p = Pos_position({maze, i}), v = world->camera - p;
    if (maze_nodes(maze)[i].submaze || (length(v) < 100) != near) continue;
    Pos ends[pos_max_edges];
    MazeEdge rows[pos_max_edges];
    for (int32_t e = Pos_alledges(maze, i, ends, rows); e-- > 0;) {
      if (!Pos_before({maze, i}, ends[e])) continue;
      const Vec3 q = Pos_position(ends[e]), side = unit(cross(q - p, v));
      const uint32_t colour = visit_colour(rows[e], {maze, i}, ends[e], world);
      const double w = maze->halfwidth, bounds[] = {-w, -0.6 * w, 0.6 * w, w};
      for (int band = 0; near && band < 3; band++) {
        const Vec3 h = unit(v) * w * (band == 1 ? 1.0 : -1.0);
        solid(colour, band == 1 ? -0x40 : 0x40);
        vertex3(q + (h + side * bounds[band + 1]));
        vertex3(p + (h + side * bounds[band + 1]));
        vertex3(p + (h + side * bounds[band]));
        vertex3(q + (h + side * bounds[band]));
      }
      if (near) continue;
      solid(colour, 0x40);
      vertex3(p);
      vertex3(q);
    }
  }
  glEnd();
}

void fixed_discs(Maze *maze, const World *world) {
  glBegin(GL_QUADS);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const MazeNode &node = maze_nodes(maze)[i];
    const Vec3 p = node_position(node), v = world->camera - p;
    if (node.submaze || !(length(v) < 100)) continue;
    const uint32_t colour = visit_colour(node.self, {maze, i}, Pos_null, world);
    const uint32_t white = Pos_equal({maze, i}, world->cur) ? colour_white : 0;
    const Vec3 u = unit(v) * maze->halfwidth, c = p + u * 1.5;
    billboard_disc(p - u, maze->halfwidth, white | colour_adjust(colour, 64, 64, 64),
                   world->camera);
    billboard_disc(single_precision(c), static_cast<float>(0.6 * maze->halfwidth),
                   white | colour_adjust(colour, -64, -64, -64), world->camera);
  }
  glEnd();
}

void fixed_tree(Maze *maze, const World *world, GLuint program) {
  fixed_edges(maze, world, true);
  gl.use_program(program);
  fixed_discs(maze, world);
  gl.use_program(0);
  if (plot_smooth_lines != 0) smooth_lines_on(0, 1.5F);
  fixed_edges(maze, world, false);
  if (plot_smooth_lines != 0) smooth_lines_off();
  for (int32_t i = maze_count(maze); i-- > 0;)
    if (maze_nodes(maze)[i].submaze) fixed_tree(maze_nodes(maze)[i].submaze, world, program);
}

} // namespace

void reference_fixed_plot(const World *world) {
  static const GLuint program =
      program_build(&shader_disc_vertex, 1, &shader_disc_fragment, 1, nullptr, nullptr, nullptr);
  fixed_tree(world->root, world, program);
}

void reference_line_plot(const World *world) {
  static const GLuint edge_program = line_program(shader_edge_vertex, shader_edge_fragment);
  static const GLuint node_program = line_program(shader_node_vertex, shader_node_fragment);
  use(edge_program, world);
  call_tree(world->root, edges, compile_edges);
  use(node_program, world);
  call_tree(world->root, nodes, compile_nodes);
  glBegin(GL_QUADS);
  disc(World_follow_point(world), colour_white, world->time, world->cur.maze->halfwidth);
  glEnd();
  gl.use_program(0);
}

void own_line_plot(const World *world) {
  line_edges_pass(world->root, world, 1);
  line_nodes_pass(world->root, world, 1);
}

void own_ballstick_plot(const World *world) {
  ballstick_plot(world->root, world, 0);
}

void own_gantry_plot(const World *world) {
  gantry_plot(world->root, world, 0);
}

void own_voronoi_plot(const World *world) {
  voronoi_plot(world->root, world);
}

void own_fixed_plot(const World *world) {
  fixed_plot(world->root, world, 1);
}

void plot_slab(const World *world, PlotDraw draw, void (*set_slab)(float matrix[16])) {
  view_use(view_make(world, World_follow_point(world), eye_matrices_read(), set_slab));
  glClear(GL_DEPTH_BUFFER_BIT);
  draw(world);
}

void reference_line_compile(Maze *maze, int32_t which, uint32_t name) {
  glNewList(name, GL_COMPILE);
  if (which == 0) {
    compile_edges(maze);
  } else {
    compile_nodes(maze);
  }
  glEndList();
}

void reference_ballstick_plot(const World *world) {
  static const GLuint ball_program = solid_program(shader_ball_vertex, shader_ball_fragment);
  static const GLuint stick_program = solid_program(shader_stick_vertex, shader_stick_fragment);
  const Vec3 user = World_follow_point(world);
  use_solid(ball_program, user);
  call_tree(world->root, balls, compile_balls);
  glBegin(GL_QUADS);
  glColor3f(1, 1, 1);
  quad(user, 1.5 * world->cur.maze->halfwidth);
  glEnd();
  use_solid(stick_program, user);
  call_tree(world->root, sticks, compile_sticks);
  gl.use_program(0);
}

void reference_gantry_plot(const World *world) {
  static const GLuint program = solid_program(shader_gantry_vertex, shader_gantry_fragment);
  static const GLuint textures[] = {gantry_texture(0), gantry_texture(1)};
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  for (const GLuint unit : {1U, 0U}) {
    gl.active_texture(GL_TEXTURE0 + unit);
    glBindTexture(GL_TEXTURE_2D, textures[unit]);
  }
  use_solid(program, World_follow_point(world) + Vec3{0, 0, 1});
  gl.uniform_1i(gl.get_uniform_location(program, "tex"), 0);
  gl.uniform_1i(gl.get_uniform_location(program, "tnorm"), 1);
  call_tree(world->root, plates, compile_plates);
  gl.use_program(0);
  glDisable(GL_BLEND);
}

void reference_voronoi_plot(const World *world) {
  shown = world;
  call_tree(world->root, cells, compile_cells);
}

void reference_follow_drops(Maze *maze) {
  for (const Kind kind : {edges, nodes, balls, sticks, plates, cells})
    if (Attachment_find(maze, plot_name[kind]) == 0) Attachment_drop(maze, reference_name[kind]);
  for (int32_t i = maze_count(maze); i-- > 0;)
    if (maze_nodes(maze)[i].submaze) reference_follow_drops(maze_nodes(maze)[i].submaze);
}
