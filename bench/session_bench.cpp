// Loading and saving a session of about 900,000 nodes against reading and writing the same bytes.
// The session is in the current folder and stays in the system's cache. Saving, which waits for the
// disk, is measured in elapsed time.

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "generate/carve.h"
#include "generate/nest.h"
#include "generate/topologies.h"
#include "measure.h"
#include "support/file.h"
#include "support/random.h"
#include "world/session.h"

namespace {

constexpr const char *session_file = "session_bench.dat";

std::vector<uint8_t> content; // of the file; empty before it is made
World world;                  // the session in it, loaded
World loaded;                 // by the last step
void *plain_bytes;            // read by the last step

void require(bool holds) {
  if (holds) return;
  std::perror(session_file);
  std::exit(1);
}

// A plane of 90,000 nodes with large mazes in it, and many small mazes in all of them.
Maze *make_tree() {
  rand_seed(2020);
  Maze *root = Maze_plane_xy(300, 300);
  Maze_carve(root);
  Maze_nest(root, 0.0029, 40.0, Maze_random_topology);
  Maze_nest(root, 0.025, 6.0, Maze_random_topology);
  return root;
}

size_t read_plainly() {
  FILE *file = file_open(session_file);
  require(file != nullptr);
  const size_t size = static_cast<size_t>(file_size(file));
  plain_bytes = std::malloc(size);
  require(std::fread(plain_bytes, 1, size, file) == size);
  std::fclose(file);
  return size;
}

void free_plain_bytes() {
  std::free(plain_bytes);
}

void prepare_session() {
  if (!content.empty()) return;
  World_begin(&world, make_tree());
  require(World_save(&world, session_file));
  World_free(&world);
  require(World_load(&world, session_file) == SessionLoad::loaded);
  const size_t size = read_plainly();
  content.assign(static_cast<uint8_t *>(plain_bytes), static_cast<uint8_t *>(plain_bytes) + size);
  free_plain_bytes();
}

void prepare_load() {
  prepare_session();
  measure_fresh_memory(size_t{512} << 20);
}

void load() {
  require(World_load(&loaded, session_file) == SessionLoad::loaded);
}

void write_plainly() {
  FileReplacement file;
  require(file_replace_begin(&file, session_file, false));
  const size_t written = std::fwrite(content.data(), 1, content.size(), file.stream);
  require(file_replace_end(&file, written == content.size()));
}

void save() {
  require(World_save(&world, session_file));
}

} // namespace

int main(int argc, char **argv) {
  measure_add({.name = "load/plain",
               .step = [] { read_plainly(); },
               .prepare = prepare_load,
               .finish = free_plain_bytes,
               .is_once = true});
  measure_add({.name = "load/vorel",
               .step = load,
               .prepare = prepare_load,
               .finish = [] { World_free(&loaded); },
               .is_once = true});
  measure_add({.name = "save/plain",
               .step = write_plainly,
               .prepare = prepare_session,
               .is_once = true,
               .kind = TimeKind::wall});
  measure_add({.name = "save/vorel",
               .step = save,
               .prepare = prepare_session,
               .is_once = true,
               .kind = TimeKind::wall});
  measure_all(argc, argv);
  if (content.empty()) return 0;
  World_free(&world);
  file_remove(session_file);
  return 0;
}
