// Loading and saving a session of about 900,000 nodes against reading and writing the same bytes.
// The file is in the current folder and stays in the system's cache. Loading is measured in CPU
// time, and saving, which waits for the disk, in elapsed time.

#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "generate/carve.h"
#include "generate/nest.h"
#include "generate/topologies.h"
#include "measure.h"
#include "support/file.h"
#include "support/memory.h"
#include "support/random.h"
#include "world/session.h"

namespace {

constexpr const char *path = "session_bench.dat";

World world;
std::vector<uint8_t> content; // of the file

void require(bool holds) {
  if (!holds) std::abort();
}

// A plane of 90,000 nodes that holds large mazes, and all of them many small ones.
Maze *make_tree() {
  rand_seed(2020);
  Maze *root = Maze_plane_xy(300, 300);
  Maze_carve(root);
  Maze_nest(root, 0.0029, 40.0, Maze_random_topology);
  Maze_nest(root, 0.025, 6.0, Maze_random_topology);
  return root;
}

// Gives freed memory back to the system, so that all read into fresh memory. A virtual machine may
// have passed on what is free to its host; taking it back is not part of the measurement.
void prepare_memory() {
  constexpr size_t size = size_t{512} << 20;
  malloc_trim(0);
  void *block = memory_huge_block(size);
  std::memset(block, 1, size);
  measure_keep(block);
  std::free(block);
}

void *plain; // what was read

void read_plainly() {
  FILE *file = file_open(path);
  const size_t size = static_cast<size_t>(file_size(file));
  plain = std::malloc(size);
  require(std::fread(plain, 1, size, file) == size);
  std::fclose(file);
}

World loaded;

void load() {
  require(World_load(&loaded, path) == SessionLoad::loaded);
}

void write_plainly() {
  FileReplacement file;
  require(file_replace_begin(&file, path, false));
  const size_t written = std::fwrite(content.data(), 1, content.size(), file.stream);
  require(file_replace_end(&file, written == content.size()));
}

void save() {
  require(World_save(&world, path));
}

void add_all() {
  measure_add({"load/plain", read_plainly, prepare_memory, [] { std::free(plain); }, true});
  measure_add({"load/vorel", load, prepare_memory, [] { World_free(&loaded); }, true});
  measure_add({"save/plain", write_plainly, {}, {}, true, TimeKind::wall});
  measure_add({"save/vorel", save, {}, {}, true, TimeKind::wall});
}

// The session that is saved was loaded.
void make_session() {
  World made;
  World_begin(&made, make_tree());
  require(World_save(&made, path));
  World_free(&made);
  require(World_load(&world, path) == SessionLoad::loaded);
  FILE *file = file_open(path);
  content.resize(static_cast<size_t>(file_size(file)));
  require(std::fread(content.data(), 1, content.size(), file) == content.size());
  std::fclose(file);
}

} // namespace

int main(int argc, char **argv) {
  make_session();
  add_all();
  measure_all(argc, argv);
  World_free(&world);
  file_remove(path);
  return 0;
}
