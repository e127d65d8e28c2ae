// The reader of the session: bytes that it takes make a tree that can be walked everywhere.
#include "maze/pos.h"
#include "world/session.h"

static void look_everywhere(Maze *maze) {
  for (int32_t i = 0; i < maze_count(maze); i++) {
    Pos list[pos_max_edges];
    if (Maze *below = maze_nodes(maze)[i].submaze)
      look_everywhere(below);
    else
      for (int32_t k = Pos_alledges(maze, i, list, nullptr); k-- > 0;)
        if (maze_nodes(list[k].maze)[list[k].node].submaze) __builtin_trap();
  }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  World world;
  if (!World_from_bytes(&world, data, size)) return 0;
  look_everywhere(world.root);
  World_free(&world);
  return 0;
}
