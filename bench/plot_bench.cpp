// Plots of a large nested tree against their reference implementations, and against a bare list of
// the visible quads, in one process. Run by scripts/bench on the offscreen driver.

#include <cstdio>
#include <string>
#include <vector>

#include "generate/carve.h"
#include "generate/relax.h"
#include "generate/topologies.h"
#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/window.h"
#include "large_world.h"
#include "maze/attachment.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "maze/traversal.h"
#include "measure.h"
#include "plot_reference.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/gl/view.h"
#include "render/line_plot.h"
#include "render/plot_switches.h"
#include "render/shader_text.h"
#include "support/random.h"
#include "world/camera.h"
#include "world/roamer.h"

namespace {

World tree;
World plain;        // a plane of 50 by 50
World disc;         // a large maze, for steps
World alone, crowd; // copies of the tree, without and with Roamers

struct Pose {
  const char *name;
  World *world;
  int32_t width, height;
  double zoom, pitch;
};

const Pose poses[] = {
    {"above", &tree, 800, 600, 20, 0},          {"tilted", &tree, 800, 600, 20, -0.4},
    {"large_above", &tree, 1280, 960, 20, 0},   {"large_tilted", &tree, 1280, 960, 20, -0.4},
    {"higher", &tree, 800, 600, 120, 0},        {"higher_tilted", &tree, 800, 600, 120, -0.4},
    {"whole", &tree, 800, 600, 1500, -0.6},     {"plain_above", &plain, 800, 600, 20, 0},
    {"plain_whole", &plain, 800, 600, 60, -0.5}};

void draw_slabs(const World *world, PlotDraw draw) {
  glClear(GL_COLOR_BUFFER_BIT);
  glLoadIdentity();
  World_apply_view(world);
  plot_slab(world, draw, projection_far_slab);
  plot_slab(world, draw, projection_near_slab);
  glFinish();
}

// A list for each pass and slab, of all that the view shows.
GLuint bare_list[2][2];
GLuint bare_program[2];
int bare_slab;

void bare_make(const World *world) {
  for (int which = 0; which < 2; which++) {
    GLuint &list = bare_list[bare_slab][which];
    if (list == 0) list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    glBegin(GL_QUADS);
    for (Maze *maze = world->root; maze != nullptr; maze = Maze_next(world->root, maze))
      draw_cache_draw_immediate(maze, line_batch, which, true, &view_current());
    glEnd();
    glEndList();
  }
  bare_slab = !bare_slab;
}

void bare_draw(const World *world) {
  for (int which = 0; which < 2; which++) {
    const GLuint program = bare_program[which];
    program_use(program, view_current().projection);
    program_set_vec3(program, "o", world->camera);
    program_set_float(program, "t", world->time);
    program_set_float(program, "r0", -0.5);
    program_set_float(program, "r1", 0.5);
    glCallList(bare_list[bare_slab][which]);
  }
  gl.use_program(0);
  bare_slab = !bare_slab;
}

void look(const Pose &pose) {
  gfx_resize(pose.width, pose.height);
  large_world_look(pose.world, pose.world->cur, pose.zoom, 0.3, pose.pitch);
}

// What a step costs before the frame is drawn.
void compile_ours() {
  draw_cache_compile(disc.root, line_batch, true, &disc);
}

GLuint reference_lists[2];

void compile_reference() {
  for (int which = 0; which < 2; which++) {
    if (reference_lists[which] == 0) reference_lists[which] = glGenLists(1);
    reference_line_compile(disc.root, which, reference_lists[which]);
  }
}

World fresh; // a copy of the tree that nobody has drawn

void copy_tree() {
  look(poses[0]);
  fresh = tree;
  fresh.root = Maze_copy(tree.root, 1);
  fresh.cur = World_first_place(fresh.root);
  glFinish();
}

std::vector<uint32_t> picture(const World *world, PlotDraw draw) {
  std::vector<uint32_t> pixels(static_cast<size_t>(screen_width * screen_height));
  draw_slabs(world, draw);
  glReadPixels(0, 0, screen_width, screen_height, GL_BGRA, GL_UNSIGNED_BYTE, pixels.data());
  return pixels;
}

// Both must draw the same, or their times mean nothing. The line plot comes first: the fixed plot
// culls by its bounds.
bool check_plots() {
  constexpr PlotDraw pairs[][2] = {{reference_line_plot, own_line_plot},
                                   {reference_ballstick_plot, own_ballstick_plot},
                                   {reference_gantry_plot, own_gantry_plot},
                                   {reference_voronoi_plot, own_voronoi_plot},
                                   {reference_fixed_plot, own_fixed_plot}};
  look(poses[1]);
  for (const auto &[reference, own] : pairs) {
    if (picture(&tree, reference) == picture(&tree, own)) continue;
    std::fprintf(stderr, "plot %td: the pictures differ\n", &reference - pairs[0]);
    return false;
  }
  return true;
}

int32_t count(const Maze *maze, int32_t *mazes) {
  int32_t nodes = maze_count(maze);
  ++*mazes;
  for (int32_t i = maze_count(maze); i-- > 0;)
    if (maze_nodes(maze)[i].submaze) nodes += count(maze_nodes(maze)[i].submaze, mazes);
  return nodes;
}

// In the first submaze from the middle of the root on.
Pos central_place(Maze *root) {
  int32_t node = 32 * 65 + 32;
  while (maze_nodes(root)[node].submaze == nullptr)
    node++;
  return {maze_nodes(root)[node].submaze, 0};
}

void make_worlds() {
  rand_seed(2020);
  tree.root = large_world(65, 9.0, 1);
  tree.cur = central_place(tree.root);
  plain.root = large_world(50, 1.0, 0);
  plain.cur = {plain.root, 25 * 50 + 25};
  disc.root = Maze_polar(50, 1);
  Maze_carve(disc.root);
  disc.cur = {disc.root, 0};
  for (World *world : {&alone, &crowd}) {
    world->root = Maze_copy(tree.root, 1);
    world->cur = central_place(world->root);
    GrowList_init(&world->roamers, sizeof(Roamer));
  }
  World_set_roamers(&crowd, max_roamers);
  int32_t mazes = 0;
  const int32_t nodes = count(tree.root, &mazes);
  std::fprintf(stderr, "a tree of %d mazes and %d nodes; steps on %d nodes; %s\n", mazes, nodes,
               maze_count(disc.root), glGetString(GL_RENDERER));
}

void add(const char *plot, const Pose &pose, const char *who, PlotDraw draw,
         PlotDraw prepare = nullptr) {
  const auto begin = [&pose, draw, prepare] {
    look(pose);
    if (prepare != nullptr) draw_slabs(pose.world, prepare);
    draw_slabs(pose.world, draw);
  };
  measure_add({std::string(plot) + "_" + pose.name + "/" + who,
               [&pose, draw] { draw_slabs(pose.world, draw); }, begin});
}

void add_first(const std::string &name, PlotDraw draw) {
  measure_add({.name = name,
               .step = [draw] { draw_slabs(&fresh, draw); },
               .prepare = copy_tree,
               .finish = [] { Maze_destroy(fresh.root, 1); },
               .is_once = true});
}

// A frame while R is held at the root: all nodes move, and everything is built again.
void add_held(const std::string &name, PlotDraw draw, bool is_reference) {
  const auto frame = [draw, is_reference] {
    Attachment_before_move(fresh.root);
    Maze_smooth(fresh.root, 0.01);
    Attachment_after_move(fresh.root);
    if (is_reference) reference_follow_drops(fresh.root);
    draw_slabs(&fresh, draw);
  };
  const auto begin = [draw] {
    copy_tree();
    draw_slabs(&fresh, draw);
  };
  measure_add({name, frame, begin, [] { Maze_destroy(fresh.root, 1); }});
}

void add_step(const std::string &name, void (*compile)()) {
  const auto step = [compile] {
    large_world_walk(&disc, 1);
    compile();
  };
  measure_add({name, step, compile});
}

// Frames at 60 a second.
void add_roamers(const std::string &name, World *world) {
  const auto begin = [world] {
    gfx_resize(800, 600);
    large_world_look(world, world->cur, initial_zoom, 0.3, 0);
  };
  const auto step = [world] {
    plot_roamers = true;
    world->time += 1.0 / 60;
    World_step_roamers(world, 1.0 / 60);
    draw_cache_begin_frame();
    draw_slabs(world, own_line_plot);
    plot_roamers = false;
  };
  measure_add({name, step, begin});
}

void add_all() {
  for (const Pose &pose : poses) {
    add("lines", pose, "reference", reference_line_plot);
    add("lines", pose, "vorel", own_line_plot);
    add("lines", pose, "bare", bare_draw, bare_make);
    if (pose.zoom > 60) continue; // a picture of plates or balls from far above takes seconds
    add("balls", pose, "reference", reference_ballstick_plot);
    add("balls", pose, "vorel", own_ballstick_plot);
    add("gantry", pose, "reference", reference_gantry_plot);
    add("gantry", pose, "vorel", own_gantry_plot);
    add("ground", pose, "reference", reference_voronoi_plot);
    add("ground", pose, "vorel", own_voronoi_plot);
    add("processor", pose, "reference", reference_fixed_plot);
    add("processor", pose, "vorel", own_fixed_plot, own_line_plot); // whose bounds it culls by
  }
  add_step("step/reference", compile_reference);
  add_step("step/vorel", compile_ours);
  add_roamers("roamers/none", &alone);
  add_roamers("roamers/vorel", &crowd);
  add_first("first/reference", reference_line_plot);
  add_first("first/vorel", own_line_plot);
  add_first("first_balls/reference", reference_ballstick_plot);
  add_first("first_balls/vorel", own_ballstick_plot);
  add_first("first_gantry/reference", reference_gantry_plot);
  add_first("first_gantry/vorel", own_gantry_plot);
  add_first("first_ground/reference", reference_voronoi_plot);
  add_first("first_ground/vorel", own_voronoi_plot);
  add_held("r_held/reference", reference_line_plot, true);
  add_held("r_held/vorel", own_line_plot, false);
}

} // namespace

int main(int argc, char **argv) {
  windowed = 1;
  projection_is_2d = 0;
  if (gfx_open(1280, 960, "bench") == 0) return 1;
  shader_procs_load();
  bare_program[0] =
      program_join(shader_agecolour, shader_edge_vertex, nullptr, shader_edge_fragment);
  bare_program[1] =
      program_join(shader_agecolour, shader_node_vertex, nullptr, shader_node_fragment);
  make_worlds();
  if (!check_plots()) return 1;
  add_all();
  measure_all(argc, argv);
  for (World *world : {&tree, &plain, &disc, &alone, &crowd})
    World_free(world);
  gfx_close();
  return 0;
}
