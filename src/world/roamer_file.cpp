#include "world/roamer_file.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <vector>

#include "maze/pos.h"
#include "maze/walk.h"
#include "world/roamer.h"

namespace {

constexpr uint32_t block_mark = 0x4D414F52; // "ROAM"
constexpr size_t mark_size = 4, count_size = 4, row_size = 32;
constexpr uint32_t no_maze = 0xFFFFFFFF;

struct NumberedMaze {
  const Maze *maze;
  uint32_t number;
};

// All mazes of a tree, in the order of their addresses.
struct MazeNumbers {
  NumberedMaze *rows; // released with std::free
  uint32_t count, capacity;
};

bool is_before(const NumberedMaze &a, const NumberedMaze &b) {
  return std::less<>{}(a.maze, b.maze);
}

// False if there is no memory.
bool append_maze(MazeNumbers *numbers, const Maze *maze) {
  if (numbers->count == numbers->capacity) {
    const uint32_t capacity = 2 * numbers->capacity + 16;
    void *moved = std::realloc(numbers->rows, capacity * sizeof(NumberedMaze));
    if (moved == nullptr) return false;
    numbers->rows = static_cast<NumberedMaze *>(moved);
    numbers->capacity = capacity;
  }
  numbers->rows[numbers->count] = {maze, numbers->count};
  numbers->count++;
  return true;
}

bool number_mazes(MazeNumbers *numbers, const Maze *root) {
  for (const Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze))
    if (!append_maze(numbers, maze)) return false;
  std::sort(numbers->rows, numbers->rows + numbers->count, is_before);
  return true;
}

void write_place(const MazeNumbers &numbers, Pos place, ByteWriter *out) {
  const NumberedMaze *at = std::lower_bound(numbers.rows, numbers.rows + numbers.count,
                                            NumberedMaze{place.maze, 0}, is_before);
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
  MazeNumbers numbers = {};
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
  std::free(numbers.rows);
}

bool Roamers_read(World *world, ByteReader *in) {
  if (bytes_left(in) == 0) return true;
  if (bytes_left(in) < mark_size || read_number<uint32_t>(in) != block_mark) return false;
  if (bytes_left(in) < count_size) return true;
  const uint32_t count = read_number<uint32_t>(in);
  if (count <= max_roamers && bytes_left(in) == count * row_size) read_rows(world, in, count);
  return !in->failed;
}
