// The reader of the session: bytes that it takes make a tree that can be walked everywhere, come
// back the same from what it writes, and it takes the same from memory and through a small buffer.
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "maze/pos.h"
#include "world/session.h"

static void look_everywhere(Maze *maze) {
  for (int32_t i = 0; i < maze_count(maze); i++) {
    Pos list[pos_max_edges];
    if (Maze *below = maze_nodes(maze)[i].submaze)
      look_everywhere(below);
    else
      for (int32_t k = Pos_alledges(maze, i, list, nullptr); k-- > 0;)
        if (maze_nodes(list[k].maze)[list[k].node].submaze) std::abort();
  }
}

static std::string written(const World *world) {
  char *bytes = nullptr;
  size_t size = 0;
  const auto out = std::make_unique<ByteWriter>();
  out->file = open_memstream(&bytes, &size);
  World_write(world, out.get());
  std::fclose(out->file);
  const std::string all(bytes, size);
  std::free(bytes);
  return all;
}

static bool taken_through_buffer(const uint8_t *data, size_t size, World *world) {
  if (size == 0) return false;
  FILE *file = fmemopen(const_cast<uint8_t *>(data), size, "rb");
  uint8_t buffer[256];
  ByteReader in = file_reader(file, size, buffer, sizeof buffer);
  const bool taken = World_read(world, &in);
  std::fclose(file);
  return taken;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  World world, again;
  ByteReader in = memory_reader(data, size);
  const bool taken = World_read(&world, &in);
  if (taken_through_buffer(data, size, &again) != taken) std::abort();
  if (!taken) return 0;
  look_everywhere(world.root);
  const std::string bytes = written(&world);
  if (bytes != written(&again)) std::abort();
  World back;
  in = memory_reader(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
  if (!World_read(&back, &in) || written(&back) != bytes) std::abort();
  World_free(&back);
  World_free(&world);
  World_free(&again);
  return 0;
}
