#include "generate/flat.h"

#include "maze/edit.h"

namespace {

// A box of nodes: how many along each of its three directions, and the step between them there.
struct Lattice {
  int32_t w, h, d;
  Vec3 right, up, deep;
};

// Rows in the order x - 1, x + 1, y - 1, y + 1, z - 1, z + 1, where those exist.
void add_node(Maze *maze, const Lattice &box, int32_t x, int32_t y, int32_t z) {
  const Vec3 p = box.right * x + box.up * y + box.deep * z;
  const int32_t layer = box.w * box.h;
  const int32_t index = z * layer + y * box.w + x;
  MazeNode node = {};
  MazeNode_init(&node, p.x, p.y, p.z);
  if (x > 0) MazeNode_append_slot(&node, index - 1);
  if (x + 1 < box.w) MazeNode_append_slot(&node, index + 1);
  if (y > 0) MazeNode_append_slot(&node, index - box.w);
  if (y + 1 < box.h) MazeNode_append_slot(&node, index + box.w);
  if (z > 0) MazeNode_append_slot(&node, index - layer);
  if (z + 1 < box.d) MazeNode_append_slot(&node, index + layer);
  GrowList_append(&maze->nodes, &node);
}

Maze *build(const Lattice &box) {
  Maze *maze = Maze_new();
  if (box.w < 1 || box.h < 1 || box.d < 1) return maze;
  GrowList_reserve(&maze->nodes, static_cast<uint32_t>(box.w * box.h * box.d));
  for (int32_t z = 0; z < box.d; z++)
    for (int32_t y = 0; y < box.h; y++)
      for (int32_t x = 0; x < box.w; x++)
        add_node(maze, box, x, y, z);
  return maze;
}

constexpr Vec3 along_x = {1, 0, 0};
constexpr Vec3 along_y = {0, 1, 0};
constexpr Vec3 along_z = {0, 0, 1};

} // namespace

Maze *Maze_plane_xy(int32_t w, int32_t h) {
  return build({w, h, 1, along_x, along_y, along_z});
}

Maze *Maze_plane_xz(int32_t w, int32_t h) {
  return build({w, h, 1, along_x, along_z, along_y});
}

Maze *Maze_plane_yz(int32_t w, int32_t h) {
  return build({w, h, 1, along_y, along_z, along_x});
}

Maze *Maze_grid3d(int32_t w, int32_t h, int32_t d) {
  return build({w, h, d, along_x, along_y, along_z});
}
