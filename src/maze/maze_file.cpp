#include "maze/maze_file.h"

#include <algorithm>
#include <cstring>

#include "maze/pos.h"
#include "support/strings.h"

namespace {

constexpr size_t smallest_node = 53; // bytes of a node without rows or a submaze
constexpr int32_t deepest = 100;     // levels; far beyond any tree that is ever made
// Rows to make room for at once. Not all that a count asks for: nested counts that each claim the
// rest of the file would ask for more memory than there is.
constexpr uint32_t rows_at_once = 1024;

void write_edge(ByteWriter *out, const MazeEdge &edge) {
  write_u32(out, edge.colour);
  write_u32(out, 0); // filler
  write_f64(out, edge.usertime);
  write_f64(out, edge.roamertime);
}

MazeEdge read_edge(ByteReader *in) {
  MazeEdge edge;
  edge.colour = read_u32(in);
  read_u32(in); // filler
  edge.usertime = read_f64(in);
  edge.roamertime = read_f64(in);
  return edge;
}

void write_node(const MazeNode &node, ByteWriter *out, const Maze *current) {
  write_f64(out, node.x);
  write_f64(out, node.y);
  write_f64(out, node.z);
  write_u32(out, node.degree);
  for (uint32_t r = 0; r < node.degree; r++)
    write_i32(out, node.nbr[r]);
  for (uint32_t r = 0; r < node.degree; r++)
    write_edge(out, node.edge[r]);
  write_edge(out, node.self);
  write_u8(out, node.submaze != nullptr ? 1 : 0);
  if (node.submaze != nullptr) Maze_write(node.submaze, out, current);
}

// A flag byte; anything but 0 and 1 is a failure.
bool read_flag(ByteReader *in) {
  const uint8_t flag = read_u8(in);
  if (flag > 1) in->failed = true;
  return flag == 1;
}

// All of a node but what it holds; returns whether it holds a maze.
bool read_node(ByteReader *in, MazeNode *node) {
  const double x = read_f64(in);
  const double y = read_f64(in);
  const double z = read_f64(in);
  MazeNode_init(node, x, y, z);
  const uint32_t degree = read_u32(in);
  if (degree > MAZE_MAX_DEGREE) {
    in->failed = true;
    return false;
  }
  node->degree = degree;
  for (uint32_t r = 0; r < degree; r++)
    node->nbr[r] = read_i32(in);
  for (uint32_t r = 0; r < degree; r++)
    node->edge[r] = read_edge(in);
  node->self = read_edge(in);
  return read_flag(in);
}

void read_name(ByteReader *in, char **name) {
  const void *end = bytes_left(in) > 0 ? std::memchr(in->at, 0, bytes_left(in)) : nullptr;
  if (end == nullptr) {
    in->failed = true;
    return;
  }
  const uint8_t *text = in->at;
  in->at = static_cast<const uint8_t *>(end) + 1;
  if (*text != 0) str_dup_into(name, reinterpret_cast<const char *>(text));
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

Maze *read_record(ByteReader *in, Maze **current, uint32_t doors, int32_t depth);

// Reads the nodes of a maze whose first `doors` must be plain, and all mazes below.
void read_nodes(ByteReader *in, Maze *maze, uint32_t count, Maze **current, uint32_t doors,
                int32_t depth) {
  GrowList_reserve(&maze->nodes, std::min(count, rows_at_once));
  for (uint32_t i = 0; i < count && !in->failed; i++) {
    MazeNode node = {};
    const bool holds = read_node(in, &node);
    if (holds && i < doors) in->failed = true;
    if (holds && !in->failed) node.submaze = read_record(in, current, node.degree, depth + 1);
    if (node.submaze != nullptr) {
      node.submaze->parent = maze;
      node.submaze->parentnode = static_cast<int32_t>(i);
    }
    GrowList_append(&maze->nodes, &node);
  }
}

// Null, with `failed` set, if the record is not sound.
Maze *read_record(ByteReader *in, Maze **current, uint32_t doors, int32_t depth) {
  const bool is_current = read_flag(in);
  const uint32_t count = read_u32(in);
  const bool possible = count > 0 && count <= bytes_left(in) / smallest_node && count >= doors &&
                        depth < deepest && !(is_current && *current != nullptr);
  if (in->failed || !possible) {
    in->failed = true;
    return nullptr;
  }
  Maze *maze = Maze_new();
  if (is_current) *current = maze;
  read_nodes(in, maze, count, current, doors, depth);
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
  write_u8(out, maze == current ? 1 : 0);
  write_u32(out, maze->nodes.count);
  for (int32_t i = 0; i < maze_count(maze); i++)
    write_node(maze_nodes(maze)[i], out, current);
  write_i32(out, maze->visited);
  write_u32(out, maze->bordermask);
  const char *name = maze->name != nullptr ? maze->name : "";
  write_bytes(out, name, std::strlen(name) + 1);
}

Maze *Maze_read(ByteReader *in, Maze **current) {
  Maze *found = nullptr;
  Maze *maze = read_record(in, &found, 0, 0);
  if (maze != nullptr && found != nullptr) *current = found;
  return maze;
}
