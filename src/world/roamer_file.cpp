#include "world/roamer_file.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "maze/pos.h"
#include "maze/traversal.h"
#include "world/roamer.h"

namespace {

constexpr uint32_t block_mark = 0x4D414F52; // "ROAM"
constexpr size_t head_size = 8, row_size = 32;
constexpr uint32_t no_maze = 0xFFFFFFFF;

struct NumberedMaze {
  const Maze *maze;
  uint32_t number;
};

bool is_before(const NumberedMaze &a, const NumberedMaze &b) {
  return std::less<>{}(a.maze, b.maze);
}

// Fills a list of NumberedMaze with all mazes of a tree, in the order of their addresses. False if
// there is no memory.
bool number_mazes(GrowList *numbers, const Maze *root) {
  uint32_t count = 0;
  for (const Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze))
    count++;
  if (!GrowList_try_reserve(numbers, count)) return false;
  for (const Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze)) {
    const NumberedMaze row = {maze, numbers->count};
    GrowList_append(numbers, &row);
  }
  NumberedMaze *first = rows<NumberedMaze>(*numbers);
  std::sort(first, first + count, is_before);
  return true;
}

void write_place(const GrowList &numbers, Pos place, ByteWriter *out) {
  const NumberedMaze *first = rows<NumberedMaze>(numbers);
  const NumberedMaze *at =
      std::lower_bound(first, first + numbers.count, NumberedMaze{place.maze, 0}, is_before);
  write_number(out, place.maze != nullptr ? at->number : no_maze);
  write_number(out, place.node);
}

Pos place_at(const std::vector<Maze *> &mazes, const uint8_t *bytes) {
  const uint32_t number = load_le<uint32_t>(bytes);
  return {number < mazes.size() ? mazes[number] : nullptr, load_le<int32_t>(bytes + 4)};
}

// False if a field is out of its range.
bool roamer_at(const std::vector<Maze *> &mazes, const uint8_t *bytes, Roamer *roamer) {
  *roamer = {load_le<double>(bytes), load_le<double>(bytes + 8), place_at(mazes, bytes + 16),
             place_at(mazes, bytes + 24)};
  const bool never_stepped = load_le<uint32_t>(bytes + 24) == no_maze && roamer->prev.node == 0;
  return roamer->timer >= 0 && roamer->timer <= roamer->period &&
         roamer->period >= min_roamer_period && roamer->period <= max_roamer_period &&
         Pos_is_place(roamer->cur) && (never_stepped || Pos_is_place(roamer->prev));
}

// The number of rows that follow; 0 if the rest of the file is not the whole block.
uint32_t read_head(ByteReader *in) {
  if (bytes_left(in) < head_size || read_number<uint32_t>(in) != block_mark) return 0;
  const uint32_t count = read_number<uint32_t>(in);
  return count <= max_roamers && bytes_left(in) == count * row_size ? count : 0;
}

void read_rows(World *world, ByteReader *in, uint32_t count) {
  std::vector<Maze *> mazes;
  for (Maze *maze = world->root; maze != nullptr; maze = Maze_next(world->root, maze))
    mazes.push_back(maze);
  bool valid = true;
  for (uint32_t i = 0; i < count && valid; i++) {
    Roamer roamer;
    const uint8_t *bytes = read_bytes(in, row_size);
    valid = bytes != nullptr && roamer_at(mazes, bytes, &roamer);
    if (valid) GrowList_append(&world->roamers, &roamer);
  }
  if (!valid) GrowList_clear(&world->roamers);
}

} // namespace

void Roamers_write(const World *world, ByteWriter *out) {
  if (world->roamers.count == 0) return;
  GrowList numbers;
  GrowList_init(&numbers, sizeof(NumberedMaze));
  if (number_mazes(&numbers, world->root)) {
    write_number(out, block_mark);
    write_number(out, world->roamers.count);
    for (uint32_t i = 0; i < world->roamers.count; i++) {
      const Roamer &roamer = rows<Roamer>(world->roamers)[i];
      write_number(out, roamer.timer);
      write_number(out, roamer.period);
      write_place(numbers, roamer.cur, out);
      write_place(numbers, roamer.prev, out);
    }
  }
  GrowList_free(&numbers);
}

bool Roamers_read(World *world, ByteReader *in) {
  const uint32_t count = read_head(in);
  if (count > 0) read_rows(world, in, count);
  return std::ferror(in->file) == 0;
}
