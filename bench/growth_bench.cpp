// Time and memory of carved planes of growing sizes, from building to loading, to show that nothing
// grows faster than the nodes. The session is in the current folder. Run by scripts/bench on the
// offscreen driver.

#include <malloc.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <regex>
#include <string>
#include <vector>

#include "generate/carve.h"
#include "generate/paint.h"
#include "generate/topologies.h"
#include "generate/transform.h"
#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/window.h"
#include "large_world.h"
#include "maze/lifetime.h"
#include "measure.h"
#include "render/gl/shaderprocs.h"
#include "render/gl/view.h"
#include "render/scene.h"
#include "support/memory.h"
#include "support/random.h"
#include "world/camera.h"
#include "world/move.h"
#include "world/session.h"

namespace {

constexpr int32_t sides[] = {100, 316, 1000, 3000};
constexpr int64_t nodes_per_size = 4'000'000; // small sizes are repeated up to this many nodes
constexpr int64_t bytes_per_node = 700;       // of memory, with the frame's caches
constexpr const char *session_file = "growth_bench.dat";

struct Stage {
  const char *name;
  std::vector<double> milliseconds, bytes;
};

std::vector<Stage> stages;

// Reads a line of /proc/self/status in bytes: "VmRSS:" is the resident size, "VmHWM:" its peak.
double memory_status(const std::string &key) {
  std::ifstream file("/proc/self/status");
  for (std::string word; file >> word;) {
    double kibibytes = 0;
    if (word == key && file >> kibibytes) return kibibytes * 1024;
  }
  return 0;
}

void reset_peak() {
  std::ofstream("/proc/self/clear_refs") << 5;
}

void require(bool holds) {
  if (holds) return;
  std::perror(session_file);
  std::exit(1);
}

// Adds the time of a step and the growth of the resident size at its peak.
void time_stage(const char *name, const std::function<void()> &step) {
  auto stage = std::find_if(stages.begin(), stages.end(),
                            [name](const Stage &other) { return other.name == name; });
  if (stage == stages.end()) stage = stages.insert(stage, {name, {}, {}});
  reset_peak();
  const double before = memory_status("VmRSS:"), start = measure_now(TimeKind::cpu);
  step();
  stage->milliseconds.push_back(measure_now(TimeKind::cpu) - start);
  stage->bytes.push_back(memory_status("VmHWM:") - before);
}

void draw(World *world) {
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glLoadIdentity();
  World_apply_view(world);
  scene_draw(world, World_follow_point(world), 0, 0, 0);
  glFinish();
}

// For the nodes of a maze, and a half more since the system may not take the same pages.
void prepare_memory(size_t nodes) {
  measure_fresh_memory(nodes * sizeof(MazeNode) * 3 / 2);
}

void make_world(World *world, int32_t side) {
  Maze *root = nullptr;
  rand_seed(2020);
  prepare_memory(static_cast<size_t>(side) * static_cast<size_t>(side));
  time_stage("build", [&root, side] { root = Maze_plane_xy(side, side); });
  time_stage("carve", [root] { Maze_carve(root); });
  Maze_colour_field(root, colour_field_sine, 1);
  Maze_scale(root, 2.5, 1);
  World_begin(world, root);
  large_world_look(world, {root, side / 2 * side + side / 2}, 20, 0.3, 0.0);
}

void draw_world(World *world) {
  time_stage("first", [world] { draw(world); });
  for (int i = 0; i < 5; i++)
    time_stage("near", [world] { draw(world); });
  for (int i = 0; i < 3; i++) {
    large_world_walk(world, 1);
    time_stage("step", [world] { draw(world); });
  }
}

void keep_world(World *world) {
  time_stage("save", [world] { require(World_save(world, session_file)); });
  const size_t nodes = world->root->nodes.count;
  World_free(world);
  prepare_memory(nodes);
  time_stage("load", [world] { require(World_load(world, session_file) == SessionLoad::loaded); });
  World_free(world);
  malloc_trim(0);
  std::remove(session_file);
}

void measure_side(int32_t side, int64_t nodes) {
  stages.clear();
  for (int64_t repeat = std::clamp<int64_t>(nodes_per_size / nodes, 1, 9); repeat > 0; repeat--) {
    World world;
    make_world(&world, side);
    draw_world(&world);
    keep_world(&world);
  }
  for (Stage &stage : stages)
    std::printf("growth_%s/%d,%.6f,%.0f\n", stage.name, side, measure_median(stage.milliseconds),
                measure_median(stage.bytes));
  std::fflush(stdout);
}

// Whether the expression selects a stage. Then all stages are measured.
bool is_selected(const std::regex &wanted) {
  for (const char *stage : {"build", "carve", "first", "near", "step", "save", "load"})
    if (std::regex_search(std::string("growth_") + stage, wanted)) return true;
  return false;
}

} // namespace

int main(int argc, char **argv) {
  if (argc > 1 && !is_selected(std::regex(argv[1]))) return 0;
  windowed = 1;
  projection_is_2d = 0;
  if (gfx_open(800, 600, "bench") == 0) return 1;
  shader_procs_load();
  for (const int32_t side : sides) {
    const int64_t nodes = int64_t{side} * side;
    if (memory_available() > static_cast<uint64_t>(nodes * bytes_per_node))
      measure_side(side, nodes);
    else
      std::fprintf(stderr, "a plane of %d by %d is left out: it needs %" PRId64 " MB of memory\n",
                   side, side, nodes * bytes_per_node / 1'000'000);
  }
  gfx_close();
  return 0;
}
