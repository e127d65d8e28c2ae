#include "maze/maze_file.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "maze/lifetime.h"
#include "maze/node_block.h"
#include "maze/pos.h"
#include "support/strings.h"

namespace {

// Sizes in bytes.
constexpr size_t node_head = 28; // position and degree
constexpr size_t edge_size = 24;
constexpr size_t min_node_size = 53; // without edges and submaze
constexpr size_t min_tail_size = 9;  // `visited`, `bordermask`, and the NUL of the name

uint8_t *store_edge(uint8_t *at, const MazeEdge &edge) {
  at = store_le(at, edge.colour);
  at = store_le(at, uint32_t{0}); // padding
  at = store_le(at, edge.usertime);
  return store_le(at, edge.roamertime);
}

void write_node(const MazeNode &node, ByteWriter *out) {
  static_assert(min_node_size + MAZE_MAX_DEGREE * (4 + edge_size) <= max_record_size);
  uint8_t *at = begin_record(out);
  for (const double coordinate : {node.x, node.y, node.z})
    at = store_le(at, coordinate);
  at = store_le(at, node.degree);
  for (uint32_t r = 0; r < node.degree; r++)
    at = store_le(at, node.nbr[r]);
  for (uint32_t r = 0; r < node.degree; r++)
    at = store_edge(at, node.edge[r]);
  at = store_edge(at, node.self);
  end_record(out, store_le(at, static_cast<uint8_t>(node.submaze != nullptr ? 1 : 0)));
}

void write_head(const Maze *maze, ByteWriter *out, const Maze *current) {
  write_number(out, static_cast<uint8_t>(maze == current ? 1 : 0));
  write_number(out, maze->nodes.count);
}

void write_tail(const Maze *maze, ByteWriter *out) {
  write_number(out, maze->visited);
  write_number(out, maze->bordermask);
  const char *name = maze->name != nullptr ? maze->name : "";
  write_bytes(out, name, std::strlen(name) + 1);
}

MazeEdge edge_at(const uint8_t *bytes) {
  return {load_le<uint32_t>(bytes), load_le<double>(bytes + 8), load_le<double>(bytes + 16)};
}

// Flags other than 0 and 1 are a failure.
bool is_set(ByteReader *in, uint8_t flag) {
  if (flag > 1) in->failed = true;
  return flag == 1;
}

// Reads a node without its submaze; returns whether it has one.
bool read_node(ByteReader *in, MazeNode *node) {
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
  while (const auto c = read_number<uint8_t>(in)) // 0 after the end of the file
    text.push_back(static_cast<char>(c));
  if (!in->failed && !text.empty()) str_dup_into(name, text.c_str());
}

// A maze whose record is being read.
struct Level {
  Maze *maze;
  uint32_t count;           // nodes in the record
  uint32_t min_plain_nodes; // its doors: the first nodes, which must not hold mazes
  size_t reserved_bytes;    // that the enclosing mazes still need after this record
  int64_t unmatched;        // slots for later nodes less slots for earlier nodes
};

// Counts a slot of the last node read, `i`; false if it is not valid. A slot for an earlier node
// needs one back. Since no node has two slots for another, all match if there are as many for later
// nodes as for earlier ones.
bool count_slot(Level *level, int32_t i, uint32_t r) {
  const MazeNode *nodes = maze_nodes(level->maze);
  const int32_t *nbr = nodes[i].nbr, to = nbr[r];
  if (to < 0 || to >= static_cast<int32_t>(level->count) || to == i) return false;
  if (std::find(nbr, nbr + r, to) != nbr + r) return false;
  level->unmatched += to > i ? 1 : -1;
  return to > i || MazeNode_find_slot(nodes[to], i) >= 0;
}

struct MazeReader {
  ByteReader *in;
  std::vector<Level> levels; // the root first
  Maze *current;             // the maze with its flag set; null before that
  NodeBlock *block;          // that is being filled; null before that
};

// Reads the head of a maze and pushes a level for it, or sets `failed`. Counts are checked against
// the bytes left minus what the enclosing mazes still need, so all counts of a hostile file
// together are no more than the nodes that the file could hold.
Maze *begin_maze(MazeReader *reader, uint32_t min_plain_nodes, size_t reserved_bytes) {
  ByteReader *in = reader->in;
  const bool is_current = is_set(in, read_number<uint8_t>(in));
  const uint32_t count = read_number<uint32_t>(in);
  const size_t left = bytes_left(in);
  const size_t kept = reserved_bytes + min_tail_size;
  const size_t max_count = left >= kept ? (left - kept) / min_node_size : 0;
  const bool plausible = left >= kept && count <= INT32_MAX && count >= min_plain_nodes &&
                         count <= max_count && !(is_current && reader->current != nullptr);
  if (!plausible) in->failed = true;
  if (in->failed) return nullptr;
  Maze *maze = Maze_new();
  if (is_current) reader->current = maze;
  in->out_of_memory = !NodeBlock_lend(&reader->block, maze, count, max_count);
  if (in->out_of_memory) in->failed = true;
  reader->levels.push_back({maze, count, min_plain_nodes, reserved_bytes, 0});
  return maze;
}

void begin_submaze(MazeReader *reader, uint32_t holder) {
  const Level above = reader->levels.back();
  const size_t reserved_bytes =
      above.reserved_bytes + (above.count - holder - 1) * min_node_size + min_tail_size;
  MazeNode &node = maze_nodes(above.maze)[holder];
  Maze *below = begin_maze(reader, node.degree, reserved_bytes);
  if (below == nullptr) return;
  below->parent = above.maze;
  below->parentnode = static_cast<int32_t>(holder);
  node.submaze = below;
}

// Reads nodes of the innermost level, up to one that holds a maze.
void read_nodes(MazeReader *reader) {
  Level &level = reader->levels.back();
  MazeNode *nodes = maze_nodes(level.maze);
  for (uint32_t i = level.maze->nodes.count; i < level.count; i++) {
    const bool holds = read_node(reader->in, &nodes[i]);
    if (holds && i < level.min_plain_nodes) reader->in->failed = true;
    if (reader->in->failed) return;
    level.maze->nodes.count++;
    for (uint32_t r = 0; r < nodes[i].degree; r++)
      if (!count_slot(&level, static_cast<int32_t>(i), r)) reader->in->failed = true;
    if (holds) return begin_submaze(reader, i);
  }
}

void end_maze(MazeReader *reader) {
  const Level &level = reader->levels.back();
  Maze *maze = level.maze;
  maze->visited = read_number<int32_t>(reader->in);
  maze->bordermask = read_number<uint32_t>(reader->in);
  read_name(reader->in, &maze->name);
  if (level.unmatched != 0) reader->in->failed = true;
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
  MazeReader reader = {in, {}, nullptr, nullptr};
  Maze *root = begin_maze(&reader, 0, 0);
  while (!in->failed && !reader.levels.empty()) {
    const Level &level = reader.levels.back();
    if (level.maze->nodes.count < level.count)
      read_nodes(&reader);
    else
      end_maze(&reader);
  }
  NodeBlock_release(reader.block);
  if (in->failed) {
    if (root != nullptr) Maze_destroy(root, 1);
    return nullptr;
  }
  if (reader.current != nullptr) *current = reader.current;
  return root;
}
