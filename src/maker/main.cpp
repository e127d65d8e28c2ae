// vorel-maze: any maze by kind, side and seed, as a session, as a picture, or its statistics.
#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <cstring>

#include "generate/new_tree.h"
#include "gfx/stereo.h"
#include "maker/options.h"
#include "maker/picture.h"
#include "maker/plot_names.h"
#include "maker/progress.h"
#include "maker/random_walk.h"
#include "maker/statistics.h"
#include "maker/user_files.h"
#include "support/clock.h"
#include "support/file.h"
#include "support/memory.h"
#include "support/random.h"
#include "support/sentence.h"
#include "world/session.h"

namespace {

constexpr double max_nodes = 1.01e7; // estimates can be a little above the true number

bool load(const std::string &path, World *world) {
  switch (World_load(world, path.c_str())) {
  case SessionLoad::loaded:
    return true;
  case SessionLoad::absent:
    return report_file_error(path, "can't be read", std::strerror(ENOENT));
  case SessionLoad::damaged:
    return report_file_error(path, "can't be read", "it is damaged or no session");
  default:
    return report_file_error(path, "can't be read", std::strerror(errno));
  }
}

double picture_bytes(const Options &options, double nodes) {
  if (options.picture.empty()) return 0;
  const double pixels = static_cast<double>(options.width) * options.height;
  return nodes * plot_find(options.plot)->node_bytes +
         pixels * (options.stereo == stereo_interlaced ? 6 : 3);
}

// Refuses what memory cannot hold, in a sentence.
bool fits_memory(const MazeKind &kind, double size, const Options &options) {
  const double nodes = MazeKind_nodes(kind, size);
  const double bytes = nodes * kind.node_bytes + picture_bytes(options, nodes);
  if (nodes <= max_nodes && bytes < static_cast<double>(memory_available())) return true;
  report_sentence(
      "a maze of the kind %s and side %.0f has about %.3g nodes, %s", kind.name, size, nodes,
      nodes > max_nodes ? "more than ten million" : "more than the free memory can hold");
  return false;
}

Maze *make_tree(const Options &options) {
  if (options.kind.empty()) return Maze_new_tree(0);
  const MazeKind &kind = *MazeKind_find(options.kind.c_str());
  const double size = options.side > 0 ? options.side : kind.size;
  return fits_memory(kind, size, options) ? Maze_new_of_kind(kind, size) : nullptr;
}

// rand15 never shows bit 31 of its state, so that seeds S and S + 2^31 would give the same maze.
// Those of the upper half skip a draw.
void seed_random_numbers(uint32_t seed) {
  rand_seed(seed);
  if (seed > INT32_MAX) rand15();
}

// Prints a seed from the clock, so that the maze or the walk can be made again.
void print_seed(const Options &options, uint32_t seed) {
  if (options.seeded || (!options.load.empty() && options.walk == 0)) return;
  progress_end();
  std::printf("seed %" PRIu32 "\n", seed);
}

bool make(const Options &options, World *world) {
  Maze *root = make_tree(options);
  if (root == nullptr) return false;
  *world = {};
  World_begin(world, root);
  return true;
}

void walk(const Options &options, World *world) {
  progress_show("walking");
  World_walk(world, options.walk);
}

void print_statistics(const World &world) {
  progress_show("counting");
  const Statistics s = Statistics_of(world.root);
  progress_end();
  std::printf("nodes %" PRId64 "\nmazes %" PRId64 "\nlevels %" PRId64 "\ndead ends %" PRId64
              "\nlongest path %" PRId64 "\n",
              s.nodes, s.mazes, s.levels, s.dead_ends, s.longest_path);
}

bool save(const Options &options, const World &world) {
  progress_show("saving");
  if (!may_write(options, options.save)) return false; // it can have been made meanwhile
  return World_save(&world, options.save.c_str()) ||
         report_file_error(options.save, "can't be written", std::strerror(errno));
}

// Checks all files before the work.
bool may_write_results(const Options &options) {
  return (options.save.empty() || may_write(options, options.save)) &&
         (options.picture.empty() || picture_may_write(options));
}

bool write_results(const Options &options, World *world) {
  if (options.walk > 0) walk(options, world);
  if (options.statistics) print_statistics(*world);
  if (!options.save.empty() && !save(options, *world)) return false;
  return options.picture.empty() || picture_draw(options, world);
}

int run(const Options &options) {
  memory_begin();
  if (!may_write_results(options)) return 1;
  const uint32_t seed = options.seeded ? options.seed : clock_ticks();
  seed_random_numbers(seed);
  progress_show(options.load.empty() ? "making" : "loading");
  World world = {};
  const bool made = options.load.empty() ? make(options, &world) : load(options.load, &world);
  if (!made) return 1;
  print_seed(options, seed);
  const bool done = write_results(options, &world);
  progress_end();
  World_free(&world);
  return done ? 0 : 1;
}

int run_options(int argc, char **argv) {
  Options options;
  switch (Options_read(&options, argc, argv)) {
  case OptionsResult::run:
    return run(options);
  case OptionsResult::done:
    return 0;
  default:
    return 2;
  }
}

// Whether all that was printed has been written. Otherwise reports a sentence.
bool flush_output() {
  const bool failed_before = std::ferror(stdout) != 0;
  if (std::fflush(stdout) == 0 && !failed_before) return true;
  report_sentence("the standard output can't be written (%s)",
                  failed_before ? "an earlier write failed" : std::strerror(errno));
  return false;
}

} // namespace

int main(int argc, char **argv) {
  file_open_standard_streams();
  file_ignore_size_signal();
  report_set_program("vorel-maze");
  report_set_prepare(progress_end);
  const int status = run_options(argc, argv);
  return flush_output() || status != 0 ? status : 1;
}
