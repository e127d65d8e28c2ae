#include "maze/visit.h"

#include <initializer_list>

#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"

namespace {

void mark_slots(MazeNode &node, int32_t target, double MazeEdge::*time, double t) {
  for (uint32_t r = node.degree; r-- > 0;)
    if (node.nbr[r] == target) node.edge[r].*time = t;
}

// The edge that records a step: in `maze`, from node a to node b. `maze` is null if there is none.
struct Crossing {
  Maze *maze;
  int32_t a, b;
};

Crossing find_crossing(Pos from, Pos to) {
  if (from.maze == to.maze) return {to.maze, from.node, to.node};
  if (to.maze == from.maze->parent) return {to.maze, from.maze->parentnode, to.node};
  if (from.maze == to.maze->parent) return {from.maze, from.node, to.maze->parentnode};
  if (from.maze->parent == to.maze->parent)
    return {to.maze->parent, from.maze->parentnode, to.maze->parentnode};
  return {nullptr, 0, 0};
}

// Marks the border of `maze` as crossed towards neighbour `beyond` of its holder. Does nothing
// unless the holder is in `level`.
void set_border_bit(Maze *maze, const Maze *level, int32_t beyond) {
  if (maze->parent != level) return;
  const int32_t r = MazeNode_find_slot(maze_nodes(level)[maze->parentnode], beyond);
  if (r >= 0) maze->bordermask |= 1U << r;
}

void drop_stale(Maze *from, Maze *to) {
  if (to == from) return Attachment_drop(from, attachment_stale_after_step);
  for (const auto &group : attachments_stale_after_crossing)
    for (Maze *maze : {from, to})
      for (const char *name : group)
        if (name != nullptr) Attachment_drop(maze, name);
}

} // namespace

void Maze_mark_usertime(Maze *maze, int32_t a, int32_t b, double t) {
  MazeNode *nodes = maze_nodes(maze);
  mark_slots(nodes[a], b, &MazeEdge::usertime, t);
  mark_slots(nodes[b], a, &MazeEdge::usertime, t);
  if (nodes[b].self.usertime < 0.0) maze->visited++;
  nodes[b].self.usertime = t;
}

void Maze_mark_roamertime(Maze *maze, int32_t a, int32_t b, double t) {
  MazeNode *nodes = maze_nodes(maze);
  mark_slots(nodes[a], b, &MazeEdge::roamertime, t);
  mark_slots(nodes[b], a, &MazeEdge::roamertime, t);
  nodes[b].self.roamertime = t;
}

void Pos_mark_usertime(Maze *from_maze, int32_t from_node, Maze *to_maze, int32_t to_node,
                       double t) {
  const Crossing crossing = find_crossing({from_maze, from_node}, {to_maze, to_node});
  if (crossing.maze != nullptr) {
    Maze_mark_usertime(crossing.maze, crossing.a, crossing.b, t);
    set_border_bit(from_maze, crossing.maze, crossing.b);
    set_border_bit(to_maze, crossing.maze, crossing.a);
  }
  drop_stale(from_maze, to_maze);
}

void Pos_mark_roamertime(Maze *from_maze, int32_t from_node, Maze *to_maze, int32_t to_node,
                         double t) {
  const Pos from = {from_maze, from_node}, to = {to_maze, to_node};
  const Crossing crossing = find_crossing(from, to);
  if (crossing.maze == nullptr) return;
  Maze_mark_roamertime(crossing.maze, crossing.a, crossing.b, t);
  Attachment_touch(to.maze, to.node);
  if (Pos_before(from, to)) Attachment_touch(from.maze, from.node); // it draws the edge
}
