#include "maze/node_block.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <new>
#include <utility>

#include "support/memory.h"

// The nodes follow the record.
struct alignas(MazeNode) NodeBlock {
  uint32_t capacity, used; // nodes
  uint32_t users;
};

namespace {

constexpr uint32_t usual_capacity = 1 << 17; // 36 MiB

uint32_t unused_nodes(const NodeBlock *block) {
  return block != nullptr ? block->capacity - block->used : 0;
}

// A block with one user; null if there is no memory.
NodeBlock *new_block(uint32_t capacity) {
  void *memory = memory_try_block(sizeof(NodeBlock) + size_t{capacity} * sizeof(MazeNode));
  return memory != nullptr ? new (memory) NodeBlock{capacity, 0, 1} : nullptr;
}

void lend(NodeBlock *block, Maze *maze, uint32_t count) {
  GrowList_borrow(&maze->nodes, reinterpret_cast<MazeNode *>(block + 1) + block->used);
  maze->block = block;
  block->used += count;
  block->users++;
}

} // namespace

bool NodeBlock_lend(NodeBlock **filling, Maze *maze, uint32_t count, size_t max_count) {
  assert(maze->block == nullptr && count <= max_count);
  if (count == 0) return true;
  if (count <= unused_nodes(*filling)) {
    lend(*filling, maze, count);
    return true;
  }
  const size_t capacity = std::min<size_t>(usual_capacity, max_count);
  NodeBlock *fresh = new_block(std::max(count, static_cast<uint32_t>(capacity)));
  if (fresh == nullptr) return false;
  lend(fresh, maze, count);
  if (unused_nodes(fresh) > unused_nodes(*filling)) std::swap(fresh, *filling);
  NodeBlock_release(fresh);
  return true;
}

void NodeBlock_release(NodeBlock *block) {
  if (block == nullptr) return;
  block->users--;
  if (block->users == 0) std::free(block);
}
