// Plots of a large nested tree against their literal telling, and against the bare quads of what
// can be seen, in one process. Run by scripts/bench on the offscreen driver.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

#include "generate/carve.h"
#include "generate/topologies.h"
#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/window.h"
#include "maze/pos.h"
#include "plot_literal.h"
#include "render/apply_view.h"
#include "render/line_lists.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"
#include "support/random.h"
#include "town.h"
#include "world/camera.h"

namespace {

World tree;
World plain; // a plane of 50 by 50
World disc;  // a large maze, for steps

struct View {
  const char *name;
  World *world;
  int32_t width, height;
  double zoom, pitch;
};

const View views[] = {
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

// Knows from the line plot what lies outside.
void processor(const World *world) {
  line_lists(world->root, 1);
  own_fixed_plot(world);
}

// One list a pass and slab, of all mazes that can be seen in it.
GLuint bare_list[2][2];
GLuint bare_program[2];
int bare_slab;

void add_visible(const MazeView &view, MazeList *list, int pass) {
  const MazePart &part = line_kind.parts[pass];
  for (uint32_t k = 0; k < list->chunks.count; k++) {
    const MazeChunk &chunk = rows<MazeChunk>(list->chunks)[k];
    if (maze_view_shows(view, chunk.bounds))
      part.draw(list->parts[pass], maze_chunk_begin(list, k, pass), chunk.body_end[pass],
                list->halfwidth);
  }
  for (uint32_t i = 0; i < list->below.count; i++) {
    const MazeBelow &below = rows<MazeBelow>(list->below)[i];
    if (maze_view_shows(view, below.bounds)) add_visible(view, below.list, pass);
  }
}

void bare_make(const World *world) {
  const MazeView view = maze_view(world->root, line_kind, world);
  for (int which = 0; which < 2; which++) {
    GLuint &list = bare_list[bare_slab][which];
    if (list == 0) list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    glBegin(GL_QUADS);
    add_visible(view, line_lists(world->root, 1), which);
    glEnd();
    glEndList();
  }
  bare_slab = !bare_slab;
}

void bare_draw(const World *world) {
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  for (int which = 0; which < 2; which++) {
    const auto location = [which](const char *name) {
      return gl2.get_uniform_location(bare_program[which], name);
    };
    gl2.use_program(bare_program[which]);
    gl2.uniform_matrix_4fv(location("proj"), 1, 0, projection);
    gl2.uniform_3f(location("o"), static_cast<float>(world->camera.x),
                   static_cast<float>(world->camera.y), static_cast<float>(world->camera.z));
    gl2.uniform_1f(location("t"), static_cast<float>(world->time));
    gl2.uniform_1f(location("r0"), -0.5F);
    gl2.uniform_1f(location("r1"), 0.5F);
    glCallList(bare_list[bare_slab][which]);
  }
  gl2.use_program(0);
  bare_slab = !bare_slab;
}

void look(const View &view) {
  gfx_resize(view.width, view.height);
  town_look(view.world, view.world->cur, view.zoom, 0.3, view.pitch);
}

void frames(benchmark::State &state, const View &view, PlotDraw draw, PlotDraw prepare) {
  look(view);
  if (prepare != nullptr) draw_slabs(view.world, prepare);
  draw_slabs(view.world, draw);
  for (auto _ : state)
    draw_slabs(view.world, draw);
}

// What a step costs before the frame is drawn.
void compile_ours() {
  MazeList *lists = line_lists(disc.root, 1);
  for (uint32_t k = 0; k < lists->chunks.count; k++)
    maze_chunk_compile(lists, k);
}

void step_ours(benchmark::State &state) {
  compile_ours();
  for (auto _ : state) {
    town_walk(&disc, 1);
    compile_ours();
  }
}

void step_literal(benchmark::State &state) {
  const GLuint names[] = {glGenLists(1), glGenLists(1)};
  for (auto _ : state) {
    town_walk(&disc, 1);
    for (int which = 0; which < 2; which++)
      literal_line_compile(disc.root, which, names[which]);
  }
  for (const GLuint name : names)
    glDeleteLists(name, 1);
}

void first_frame(benchmark::State &state, PlotDraw draw) {
  look(views[0]);
  for (auto _ : state) {
    state.PauseTiming();
    World fresh = tree;
    fresh.root = Maze_copy(tree.root, 1);
    fresh.cur = World_first_place(fresh.root);
    glFinish();
    state.ResumeTiming();
    draw_slabs(&fresh, draw);
    state.PauseTiming();
    Maze_destroy(fresh.root, 1);
    state.ResumeTiming();
  }
}

std::vector<uint32_t> picture(const World *world, PlotDraw draw) {
  std::vector<uint32_t> pixels(static_cast<size_t>(screen_width * screen_height));
  draw_slabs(world, draw);
  glReadPixels(0, 0, screen_width, screen_height, GL_BGRA, GL_UNSIGNED_BYTE, pixels.data());
  return pixels;
}

// Both ways must draw the same, or their times mean nothing.
bool check_plots() {
  constexpr PlotDraw pairs[][2] = {{literal_line_plot, own_line_plot},
                                   {literal_ballstick_plot, own_ballstick_plot},
                                   {literal_gantry_plot, own_gantry_plot},
                                   {literal_voronoi_plot, own_voronoi_plot},
                                   {literal_fixed_plot, processor}};
  look(views[1]);
  for (const auto &[literal, own] : pairs) {
    if (picture(&tree, literal) == picture(&tree, own)) continue;
    std::fprintf(stderr, "plot %td: the pictures differ\n", &literal - pairs[0]);
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

void make_worlds() {
  rand_seed(2020);
  tree.root = town(65, 9.0, 1);
  tree.cur = {maze_nodes(tree.root)[32 * 65 + 32].submaze, 0};
  for (int32_t i = 32 * 65 + 32; tree.cur.maze == nullptr; i++)
    tree.cur.maze = maze_nodes(tree.root)[i].submaze;
  plain.root = town(50, 1.0, 0);
  plain.cur = {plain.root, 25 * 50 + 25};
  disc.root = Maze_polar(50, 1);
  Maze_carve(disc.root);
  disc.cur = {disc.root, 0};
  int32_t mazes = 0;
  const int32_t nodes = count(tree.root, &mazes);
  std::fprintf(stderr, "a tree of %d mazes and %d nodes; steps on %d nodes; %s\n", mazes, nodes,
               maze_count(disc.root), glGetString(GL_RENDERER));
}

GLuint age_program(const char *vertex, const char *fragment) {
  const char *const strings[] = {shader_agecolour, vertex};
  return program_build(strings, 2, &fragment, 1, nullptr, nullptr, nullptr);
}

void add(const char *plot, const View &view, const char *who, PlotDraw draw,
         PlotDraw prepare = nullptr) {
  const std::string name = std::string(plot) + "_" + view.name + "/" + who;
  benchmark::RegisterBenchmark(name.c_str(), frames, view, draw, prepare)
      ->Unit(benchmark::kMillisecond);
}

void add_all() {
  for (const View &view : views) {
    add("lines", view, "literal", literal_line_plot);
    add("lines", view, "vorel", own_line_plot);
    add("lines", view, "bare", bare_draw, bare_make);
    if (view.zoom > 60) continue; // a picture of plates or balls from far above takes seconds
    add("balls", view, "literal", literal_ballstick_plot);
    add("balls", view, "vorel", own_ballstick_plot);
    add("gantry", view, "literal", literal_gantry_plot);
    add("gantry", view, "vorel", own_gantry_plot);
    add("ground", view, "literal", literal_voronoi_plot);
    add("ground", view, "vorel", own_voronoi_plot);
    add("processor", view, "literal", literal_fixed_plot);
    add("processor", view, "vorel", processor);
  }
  using benchmark::RegisterBenchmark;
  RegisterBenchmark("step/literal", step_literal)->Unit(benchmark::kMillisecond);
  RegisterBenchmark("step/vorel", step_ours)->Unit(benchmark::kMillisecond);
  const auto add_first = [](const char *name, PlotDraw draw) {
    RegisterBenchmark(name, first_frame, draw)->Unit(benchmark::kMillisecond);
  };
  add_first("first/literal", literal_line_plot);
  add_first("first/vorel", own_line_plot);
  add_first("first_balls/literal", literal_ballstick_plot);
  add_first("first_balls/vorel", own_ballstick_plot);
  add_first("first_gantry/literal", literal_gantry_plot);
  add_first("first_gantry/vorel", own_gantry_plot);
  add_first("first_ground/literal", literal_voronoi_plot);
  add_first("first_ground/vorel", own_voronoi_plot);
}

} // namespace

int main(int argc, char **argv) {
  windowed = 1;
  projection_is_2d = 0;
  if (gfx_open(1280, 960, "bench") == 0) return 1;
  shader_procs_load();
  bare_program[0] = age_program(shader_edge_vertex, shader_edge_fragment);
  bare_program[1] = age_program(shader_node_vertex, shader_node_fragment);
  make_worlds();
  if (!check_plots()) return 1;
  add_all();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  for (const World *world : {&tree, &plain, &disc})
    Maze_destroy(world->root, 1);
  gfx_close();
  return 0;
}
