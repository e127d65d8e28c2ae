#include "maze/maze_file.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "maze/pos.h"
#include "support/strings.h"

namespace {

constexpr size_t node_head = 28; // bytes of the place and the degree
constexpr size_t edge_size = 24;
constexpr size_t smallest_node = 53; // bytes of a node without rows or a submaze
constexpr size_t smallest_tail = 9;  // of a maze: `visited`, `bordermask`, the name's NUL

uint8_t *put_edge(uint8_t *at, const MazeEdge &edge) {
  at = store_le(at, edge.colour);
  at = store_le(at, uint32_t{0}); // filler
  at = store_le(at, edge.usertime);
  return store_le(at, edge.roamertime);
}

void write_node(const MazeNode &node, ByteWriter *out) {
  uint8_t bytes[smallest_node + MAZE_MAX_DEGREE * (4 + edge_size)];
  uint8_t *at = bytes;
  for (const double coordinate : {node.x, node.y, node.z})
    at = store_le(at, coordinate);
  at = store_le(at, node.degree);
  for (uint32_t r = 0; r < node.degree; r++)
    at = store_le(at, node.nbr[r]);
  for (uint32_t r = 0; r < node.degree; r++)
    at = put_edge(at, node.edge[r]);
  at = put_edge(at, node.self);
  at = store_le(at, static_cast<uint8_t>(node.submaze != nullptr ? 1 : 0));
  write_bytes(out, bytes, static_cast<size_t>(at - bytes));
}

// The record's header.
void write_head(const Maze *maze, ByteWriter *out, const Maze *current) {
  write_number(out, static_cast<uint8_t>(maze == current ? 1 : 0));
  write_number(out, maze->nodes.count);
}

// The record's trailer.
void write_tail(const Maze *maze, ByteWriter *out) {
  write_number(out, maze->visited);
  write_number(out, maze->bordermask);
  const char *name = maze->name != nullptr ? maze->name : "";
  write_bytes(out, name, std::strlen(name) + 1);
}

MazeEdge edge_at(const uint8_t *bytes) {
  return {load_le<uint32_t>(bytes), load_le<double>(bytes + 8), load_le<double>(bytes + 16)};
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
  MazeNode_init(node, load_le<double>(head), load_le<double>(head + 8), load_le<double>(head + 16));
  const uint32_t degree = load_le<uint32_t>(head + 24);
  if (degree > MAZE_MAX_DEGREE) {
    in->failed = true;
    return false;
  }
  const uint8_t *bytes = read_bytes(in, degree * (4 + edge_size) + edge_size + 1);
  if (bytes == nullptr) return false;
  node->degree = degree;
  for (uint32_t r = 0; r < degree; r++, bytes += 4)
    node->nbr[r] = load_le<int32_t>(bytes);
  for (uint32_t r = 0; r < degree; r++, bytes += edge_size)
    node->edge[r] = edge_at(bytes);
  node->self = edge_at(bytes);
  return is_set(in, bytes[edge_size]);
}

void read_name(ByteReader *in, char **name) {
  std::string text;
  for (uint8_t c = read_number<uint8_t>(in); c != 0;
       c = read_number<uint8_t>(in)) // 0 at the end of the file too
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

// A maze whose record is being read.
struct Level {
  Maze *maze;
  uint32_t count; // of nodes in the record
  uint32_t doors; // of these, the first so many must be plain
  size_t owed;    // bytes that must be left behind the record for the levels above
};

struct MazeReader {
  ByteReader *in;
  std::vector<Level> levels; // the root first
  Maze *current;             // the maze with its flag set; null until it is met
  MazeNode node;             // what stands behind the rows in use has no meaning
};

// Reads what stands before the nodes of a maze and makes a level of it, or sets `failed` if the
// record can't be right. Since what is owed to the levels above counts too, all the nodes for which
// there is room at any moment could stand in the file.
Maze *begin_maze(MazeReader *reader, uint32_t doors, size_t owed) {
  ByteReader *in = reader->in;
  const bool is_current = is_set(in, read_number<uint8_t>(in));
  const uint32_t count = read_number<uint32_t>(in);
  const size_t left = bytes_left(in);
  const size_t kept = owed + smallest_tail;
  const bool possible = count <= INT32_MAX && count >= doors && left >= kept &&
                        count <= (left - kept) / smallest_node &&
                        !(is_current && reader->current != nullptr);
  if (!possible) in->failed = true;
  if (in->failed) return nullptr;
  Maze *maze = Maze_new();
  if (is_current) reader->current = maze;
  in->out_of_memory = !GrowList_try_reserve(&maze->nodes, count);
  if (in->out_of_memory) in->failed = true;
  reader->levels.push_back({maze, count, doors, owed});
  return maze;
}

void begin_submaze(MazeReader *reader, uint32_t holder) {
  const Level above = reader->levels.back();
  const size_t owed = above.owed + (above.count - holder - 1) * smallest_node + smallest_tail;
  Maze *below = begin_maze(reader, reader->node.degree, owed);
  if (below == nullptr) return;
  below->parent = above.maze;
  below->parentnode = static_cast<int32_t>(holder);
  maze_nodes(above.maze)[holder].submaze = below;
}

// Reads nodes of the deepest level to its end, or to the first one that holds a maze.
void read_nodes(MazeReader *reader) {
  const Level level = reader->levels.back();
  for (uint32_t i = level.maze->nodes.count; i < level.count; i++) {
    const bool holds = read_node(reader->in, &reader->node);
    if (holds && i < level.doors) reader->in->failed = true;
    if (reader->in->failed) return;
    GrowList_append(&level.maze->nodes, &reader->node);
    if (holds) return begin_submaze(reader, i);
  }
}

void end_maze(MazeReader *reader) {
  Maze *maze = reader->levels.back().maze;
  maze->visited = read_number<int32_t>(reader->in);
  maze->bordermask = read_number<uint32_t>(reader->in);
  read_name(reader->in, &maze->name);
  if (!rows_are_sound(maze)) reader->in->failed = true;
  reader->levels.pop_back();
}

} // namespace

void Maze_write(const Maze *root, ByteWriter *out, const Maze *current) {
  const Maze *maze = root;
  write_head(maze, out, current);
  for (int32_t i = 0;;) {
    if (i < maze_count(maze)) {
      const MazeNode &node = maze_nodes(maze)[i++];
      write_node(node, out);
      if (node.submaze == nullptr) continue;
      maze = node.submaze;
      i = 0;
      write_head(maze, out, current);
    } else {
      write_tail(maze, out);
      if (maze == root) return;
      i = maze->parentnode + 1;
      maze = maze->parent;
    }
  }
}

Maze *Maze_read(ByteReader *in, Maze **current) {
  MazeReader reader = {in, {}, nullptr, {}};
  Maze *root = begin_maze(&reader, 0, 0);
  while (!in->failed && !reader.levels.empty()) {
    const Level &level = reader.levels.back();
    if (level.maze->nodes.count < level.count)
      read_nodes(&reader);
    else
      end_maze(&reader);
  }
  if (in->failed) {
    if (root != nullptr) Maze_destroy(root, 1);
    return nullptr;
  }
  if (reader.current != nullptr) *current = reader.current;
  return root;
}
