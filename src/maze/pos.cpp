#include "maze/pos.h"

#include <cassert>

#include "support/report.h"

namespace {

// The same as Pos_submaze_enter, but Pos_null is a fatal report.
Pos enter(Maze *maze, int32_t from, int32_t to) {
  const Pos door = Pos_submaze_enter(maze, from, to);
  if (door.maze == nullptr)
    report_fatal("maze", 115, "Pos_alledges: Pos_submaze_enter returned Pos_null");
  return door;
}

// Calls visit(end, row, index) for the edges of a node, the last one first: where it ends, its row
// in the tree, and its index in Pos_alledges. Without `all_levels`, for the node's own slots only.
template <typename Visit>
void each_edge(Maze *maze, int32_t node, bool all_levels, const Visit &visit) {
  assert(node >= 0 && node < maze_count(maze));
  const MazeNode *nodes = maze_nodes(maze);
  const MazeNode &here = nodes[node];
  const Pos exit = all_levels ? Pos_submaze_exit(maze, node) : Pos_null;
  if (exit.maze != nullptr)
    visit(exit, maze_nodes(maze->parent)[maze->parentnode].edge[node], here.degree);
  for (uint32_t r = here.degree; r-- > 0;) {
    const int32_t to = here.nbr[r];
    const bool enters = all_levels && nodes[to].submaze != nullptr;
    visit(enters ? enter(maze, node, to) : Pos{maze, to}, here.edge[r], r);
  }
}

// Where a step from `from` to its neighbour `to` ends: at a door if `to` holds a maze.
Pos walk_to(Maze *maze, int32_t from, int32_t to) {
  if (maze_nodes(maze)[to].submaze != nullptr) return Pos_submaze_enter(maze, from, to);
  return {maze, to};
}

} // namespace

int32_t MazeNode_find_slot(const MazeNode &node, int32_t target) {
  for (uint32_t r = node.degree; r-- > 0;)
    if (node.nbr[r] == target) return static_cast<int32_t>(r);
  return -1;
}

Pos Pos_submaze_enter(Maze *maze, int32_t from, int32_t to) {
  assert(from >= 0 && from < maze_count(maze) && to >= 0 && to < maze_count(maze));
  const MazeNode &holder = maze_nodes(maze)[to];
  assert(holder.submaze);
  const int32_t door = MazeNode_find_slot(holder, from);
  if (holder.submaze->parent != maze || door < 0) return Pos_null;
  return {holder.submaze, door};
}

Pos Pos_submaze_exit(Maze *maze, int32_t node) {
  assert(node >= 0 && node < maze_count(maze));
  if (maze->parent == nullptr) return Pos_null;
  const MazeNode &holder = maze_nodes(maze->parent)[maze->parentnode];
  if (static_cast<uint32_t>(node) >= holder.degree) return Pos_null;
  return walk_to(maze->parent, maze->parentnode, holder.nbr[node]);
}

int32_t Pos_alledges(Maze *maze, int32_t node, Pos *out, MazeEdge *edges_out) {
  return Pos_edges(maze, node, true, out, edges_out);
}

int32_t Pos_edges(Maze *maze, int32_t node, bool all_levels, Pos *out, MazeEdge *edges_out) {
  int32_t count = 0;
  each_edge(maze, node, all_levels, [&](Pos end, const MazeEdge &row, uint32_t index) {
    out[index] = end;
    if (edges_out != nullptr) edges_out[index] = row;
    count++;
  });
  return count;
}

int32_t Pos_first_end_edges(Maze *maze, int32_t node, bool all_levels, PosEdge *out) {
  int32_t count = 0;
  each_edge(maze, node, all_levels, [&](Pos end, const MazeEdge &row, uint32_t index) {
    if (Pos_before({maze, node}, end)) out[count++] = {end, &row, static_cast<int32_t>(index)};
  });
  return count;
}

Vec3 Pos_position(Pos pos) {
  assert(pos.maze && pos.node >= 0 && pos.node < maze_count(pos.maze));
  return node_position(maze_nodes(pos.maze)[pos.node]);
}

std::vector<Vec3> Maze_node_positions(const Maze *maze) {
  std::vector<Vec3> positions(maze->nodes.count);
  for (uint32_t i = 0; i < maze->nodes.count; i++)
    positions[i] = node_position(maze_nodes(maze)[i]);
  return positions;
}

bool Pos_is_place(Pos pos) {
  if (pos.maze == nullptr || pos.node < 0 || pos.node >= maze_count(pos.maze)) return false;
  return maze_nodes(pos.maze)[pos.node].submaze == nullptr;
}
