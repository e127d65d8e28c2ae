#include "maze/maze_file.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "maze/pos.h"
#include "support/strings.h"

namespace {

constexpr size_t node_head = 28; // bytes of the place and the degree
constexpr size_t edge_size = 24;
constexpr size_t smallest_node = 53; // bytes of a node without rows or a submaze
constexpr size_t smallest_tail = 9;  // of a maze: `visited`, `bordermask`, the name's NUL
constexpr int32_t deepest = 100;     // levels; far beyond any tree that is ever made

uint8_t *put_edge(uint8_t *at, const MazeEdge &edge) {
  at = put_number(at, edge.colour);
  at = put_number(at, uint32_t{0}); // filler
  at = put_number(at, edge.usertime);
  return put_number(at, edge.roamertime);
}

void write_node(const MazeNode &node, ByteWriter *out, const Maze *current) {
  uint8_t bytes[smallest_node + MAZE_MAX_DEGREE * (4 + edge_size)];
  uint8_t *at = bytes;
  for (const double coordinate : {node.x, node.y, node.z})
    at = put_number(at, coordinate);
  at = put_number(at, node.degree);
  for (uint32_t r = 0; r < node.degree; r++)
    at = put_number(at, node.nbr[r]);
  for (uint32_t r = 0; r < node.degree; r++)
    at = put_edge(at, node.edge[r]);
  at = put_edge(at, node.self);
  at = put_number(at, static_cast<uint8_t>(node.submaze != nullptr ? 1 : 0));
  write_bytes(out, bytes, static_cast<size_t>(at - bytes));
  if (node.submaze != nullptr) Maze_write(node.submaze, out, current);
}

MazeEdge edge_at(const uint8_t *bytes) {
  return {u32_at(bytes), f64_at(bytes + 8), f64_at(bytes + 16)};
}

// Anything but 0 and 1 is a failure.
bool is_set(ByteReader *in, uint8_t flag) {
  if (flag > 1) in->failed = true;
  return flag == 1;
}

// All of a node but what it holds; returns whether it holds a maze.
bool read_node(ByteReader *in, MazeNode *node) {
  node->submaze = nullptr; // of the node before
  const uint8_t *head = read_bytes(in, node_head);
  if (head == nullptr) return false;
  MazeNode_init(node, f64_at(head), f64_at(head + 8), f64_at(head + 16));
  const uint32_t degree = u32_at(head + 24);
  if (degree > MAZE_MAX_DEGREE) {
    in->failed = true;
    return false;
  }
  const uint8_t *bytes = read_bytes(in, degree * (4 + edge_size) + edge_size + 1);
  if (bytes == nullptr) return false;
  node->degree = degree;
  for (uint32_t r = 0; r < degree; r++, bytes += 4)
    node->nbr[r] = i32_at(bytes);
  for (uint32_t r = 0; r < degree; r++, bytes += edge_size)
    node->edge[r] = edge_at(bytes);
  node->self = edge_at(bytes);
  return is_set(in, bytes[edge_size]);
}

void read_name(ByteReader *in, char **name) {
  std::string text;
  for (uint8_t c = read_u8(in); c != 0; c = read_u8(in)) // 0 at the end of the file too
    text.push_back(static_cast<char>(c));
  if (!in->failed && !text.empty()) str_dup_into(name, text.c_str());
}

bool row_is_sound(const Maze *maze, int32_t i, uint32_t r) {
  const MazeNode &node = maze_nodes(maze)[i];
  const int32_t to = node.nbr[r];
  if (to < 0 || to >= maze_count(maze) || to == i) return false;
  if (std::find(node.nbr, node.nbr + r, to) != node.nbr + r) return false;
  return MazeNode_row(maze_nodes(maze)[to], i) >= 0;
}

bool rows_are_sound(const Maze *maze) {
  for (int32_t i = 0; i < maze_count(maze); i++)
    for (uint32_t r = 0; r < maze_nodes(maze)[i].degree; r++)
      if (!row_is_sound(maze, i, r)) return false;
  return true;
}

// What the levels above ask of a maze and its record.
struct Level {
  uint32_t doors; // the first so many nodes are there and plain
  int32_t depth;
  size_t owed; // bytes that must be left behind the record for the levels above
};

Maze *read_record(ByteReader *in, Maze **current, const Level &level);

// Reads the nodes of a maze and all mazes below.
void read_nodes(ByteReader *in, Maze *maze, uint32_t count, Maze **current, const Level &level) {
  MazeNode node = {}; // what stands behind the rows in use has no meaning
  for (uint32_t i = 0; i < count; i++) {
    const bool holds = read_node(in, &node);
    if (holds && i < level.doors) in->failed = true;
    if (in->failed) return;
    if (holds) {
      const size_t owed = level.owed + (count - i - 1) * smallest_node + smallest_tail;
      node.submaze = read_record(in, current, {node.degree, level.depth + 1, owed});
      if (node.submaze == nullptr) return;
      node.submaze->parent = maze;
      node.submaze->parentnode = static_cast<int32_t>(i);
    }
    GrowList_append(&maze->nodes, &node);
  }
}

// Null, with `failed` set, if the record is not sound. Since what is owed to the levels above
// counts too, all the nodes for which there is room at any moment could stand in the file.
Maze *read_record(ByteReader *in, Maze **current, const Level &level) {
  const bool is_current = is_set(in, read_u8(in));
  const uint32_t count = read_u32(in);
  const size_t left = bytes_left(in);
  const size_t owed = level.owed + smallest_tail;
  const bool possible = count > 0 && count <= INT32_MAX && count >= level.doors && left >= owed &&
                        count <= (left - owed) / smallest_node && level.depth < deepest &&
                        !(is_current && *current != nullptr);
  if (in->failed || !possible) {
    in->failed = true;
    return nullptr;
  }
  Maze *maze = Maze_new();
  if (is_current) *current = maze;
  in->out_of_memory = !GrowList_reserve(&maze->nodes, count);
  if (in->out_of_memory)
    in->failed = true;
  else
    read_nodes(in, maze, count, current, level);
  maze->visited = read_i32(in);
  maze->bordermask = read_u32(in);
  read_name(in, &maze->name);
  if (!in->failed && rows_are_sound(maze)) return maze;
  in->failed = true;
  Maze_destroy(maze, 1);
  return nullptr;
}

} // namespace

void Maze_write(const Maze *maze, ByteWriter *out, const Maze *current) {
  write_number(out, static_cast<uint8_t>(maze == current ? 1 : 0));
  write_number(out, maze->nodes.count);
  for (int32_t i = 0; i < maze_count(maze); i++)
    write_node(maze_nodes(maze)[i], out, current);
  write_number(out, maze->visited);
  write_number(out, maze->bordermask);
  const char *name = maze->name != nullptr ? maze->name : "";
  write_bytes(out, name, std::strlen(name) + 1);
}

Maze *Maze_read(ByteReader *in, Maze **current) {
  Maze *found = nullptr;
  Maze *maze = read_record(in, &found, {0, 0, 0});
  if (maze != nullptr && found != nullptr) *current = found;
  return maze;
}
