// The steady frame of each plot: the line plot against a bare program that draws the same quads
// with the same shaders from one list for each pass, the others against a list of all that they
// send. Run by scripts/bench on the offscreen driver.

#include <functional>
#include <string>

#include "generate/carve.h"
#include "generate/topologies.h"
#include "generate/paint.h"
#include "generate/transform.h"
#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/window.h"
#include "maze/lifetime.h"
#include "measure.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/gl/view.h"
#include "render/line_plot.h"
#include "render/plot.h"
#include "render/plot_switches.h"
#include "render/shader_text.h"
#include "render/scene.h"
#include "support/random.h"
#include "world/camera.h"
#include "world/move.h"

namespace {

constexpr int32_t width = 800;
constexpr int32_t height = 600;

World world;
GLuint program[2]; // edges, nodes
GLuint list[2];

// A carved plane of 50 by 50 at the usual spacing, looked at from above its middle.
void make_world() {
  rand_seed(2020);
  Maze *lattice = Maze_plane_xy(50, 50);
  world.root = Maze_carved(lattice);
  Maze_destroy(lattice, 1);
  Maze_colour_field(world.root, colour_field_sine, 1);
  Maze_scale(world.root, 2.5, 1);
  world.cur = {world.root, 25 * 50 + 25};
  world.zoom = 60.0;
  world.view = mat3_identity;
  double pitch = -0.5;
  World_turn_view(&world, 0.3, &pitch);
  World_chase(&world, World_follow_point(&world), 1.0);
}

void make_bare() {
  program[0] = program_join(shader_agecolour, shader_edge_vertex, nullptr, shader_edge_fragment);
  program[1] = program_join(shader_agecolour, shader_node_vertex, nullptr, shader_node_fragment);
  for (int which = 0; which < 2; which++) {
    list[which] = glGenLists(1);
    glNewList(list[which], GL_COMPILE);
    if (which == 0) {
      line_edge_list(world.root, 1);
    } else {
      line_node_list(world.root);
    }
    glEndList();
  }
}

void bare_pass(int which, const float *projection) {
  program_use(program[which], projection);
  program_set_vec3(program[which], "o", world.camera);
  program_set_float(program[which], "t", world.time);
  program_set_float(program[which], "r0", -0.5);
  program_set_float(program[which], "r1", 0.5);
  glCallList(list[which]);
}

void bare_frame() {
  float projection[16];
  projection_perspective(width, height, projection);
  for (const auto set_slab : {projection_far_slab, projection_near_slab}) {
    set_slab(projection);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(projection);
    glMatrixMode(GL_MODELVIEW);
    glClear(GL_DEPTH_BUFFER_BIT);
    bare_pass(0, projection);
    bare_pass(1, projection);
  }
  gl.use_program(0);
}

void frame(void (*draw)()) {
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glLoadIdentity();
  World_apply_view(&world);
  draw();
  glFinish();
}

void scene() {
  scene_draw(&world, World_follow_point(&world), 0, 0, 0);
}

// The other plots against one list for each slab of all that they send.
struct Plot {
  const char *name;
  PlotType type;
  int32_t voronoi;
};
constexpr Plot plots[] = {{"gantry", plot_type_gantry, 0},
                          {"balls", plot_type_balls, 0},
                          {"landscape", plot_type_lines, 1}};

void choose(const Plot &plot) {
  plot_type = plot.type;
  plot_voronoi = plot.voronoi;
}

GLuint recorded[2];

// 0 for the far depth slab, 1 for the near one.
void load_slab(int slab) {
  view_use(view_make(&world, World_follow_point(&world), eye_matrices_read(),
                     slab == 0 ? projection_far_slab : projection_near_slab));
}

void record_plot() {
  glLoadIdentity();
  World_apply_view(&world);
  for (int slab = 0; slab < 2; slab++) {
    load_slab(slab);
    plot_world(&world); // the first call builds what must not be recorded
    if (recorded[slab] == 0) recorded[slab] = glGenLists(1);
    glNewList(recorded[slab], GL_COMPILE);
    plot_world(&world);
    glEndList();
  }
}

void recorded_frame() {
  for (int slab = 0; slab < 2; slab++) {
    load_slab(slab);
    glClear(GL_DEPTH_BUFFER_BIT);
    glCallList(recorded[slab]);
  }
}

// The first frame after a change of the plot or of a list is not timed.
void add(const std::string &name, void (*draw)(), const std::function<void()> &prepare) {
  measure_add({name, [draw] { frame(draw); },
               [draw, prepare] {
                 prepare();
                 frame(draw);
               }});
}

void add_plots() {
  const auto lines = [] { choose({"", plot_type_lines, 0}); };
  add("frame/vorel", scene, lines);
  add("frame/bare", bare_frame, lines);
  for (const Plot &plot : plots) {
    const std::string name = plot.name;
    add(name + "/vorel", scene, [&plot] { choose(plot); });
    add(name + "/list", recorded_frame, [&plot] {
      choose(plot);
      record_plot();
    });
  }
}

} // namespace

int main(int argc, char **argv) {
  windowed = 1;
  projection_is_2d = 0;
  if (gfx_open(width, height, "bench") == 0) return 1;
  shader_procs_load();
  make_world();
  make_bare();
  add_plots();
  measure_all(argc, argv);
  Maze_destroy(world.root, 1);
  gfx_close();
  return 0;
}
