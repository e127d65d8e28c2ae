#include "maze/visit.h"

#include <initializer_list>

#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"

static void mark_rows(MazeNode &node, int32_t target, double MazeEdge::*time, double t) {
  for (uint32_t r = node.degree; r-- > 0;)
    if (node.nbr[r] == target) node.edge[r].*time = t;
}

void Maze_mark_usertime(Maze *maze, int32_t a, int32_t b, double t) {
  MazeNode *nodes = maze_nodes(maze);
  mark_rows(nodes[a], b, &MazeEdge::usertime, t);
  mark_rows(nodes[b], a, &MazeEdge::usertime, t);
  if (nodes[b].self.usertime < 0.0) maze->visited++;
  nodes[b].self.usertime = t;
}

void Maze_mark_roamertime(Maze *maze, int32_t a, int32_t b, double t) {
  MazeNode *nodes = maze_nodes(maze);
  mark_rows(nodes[a], b, &MazeEdge::roamertime, t);
  mark_rows(nodes[b], a, &MazeEdge::roamertime, t);
  nodes[b].self.roamertime = t;
}

// The edge that carries the record of a step, on the level where it lies; `maze` is null if the
// two places have no edge in common.
struct Crossing {
  Maze *maze;
  int32_t a, b;
};

static Crossing find_crossing(Pos from, Pos to) {
  if (from.maze == to.maze) return {to.maze, from.node, to.node};
  if (to.maze == from.maze->parent) return {to.maze, from.maze->parentnode, to.node};
  if (from.maze == to.maze->parent) return {from.maze, from.node, to.maze->parentnode};
  if (from.maze->parent == to.maze->parent)
    return {to.maze->parent, from.maze->parentnode, to.maze->parentnode};
  return {nullptr, 0, 0};
}

// Notes that the border of `maze` was passed along the edge from its holder to `beyond`; nothing
// if `maze` isn't held on the level of the crossing.
static void set_border_bit(Maze *maze, const Maze *level, int32_t beyond) {
  if (maze->parent != level) return;
  const int32_t r = MazeNode_row(maze_nodes(level)[maze->parentnode], beyond);
  if (r >= 0) maze->bordermask |= 1U << r;
}

static void drop_stale(Maze *from, Maze *to) {
  if (to == from) return Attachment_drop(from, attachment_stale_after_step);
  for (const auto &group : attachments_stale_after_crossing)
    for (Maze *maze : {from, to})
      for (const char *name : group)
        if (name != nullptr) Attachment_drop(maze, name);
}

void Pos_mark_usertime(Maze *from_maze, int32_t from_node, Maze *to_maze, int32_t to_node,
                       double t) {
  const Crossing crossing = find_crossing({from_maze, from_node}, {to_maze, to_node});
  if (crossing.maze) {
    Maze_mark_usertime(crossing.maze, crossing.a, crossing.b, t);
    set_border_bit(from_maze, crossing.maze, crossing.b);
    set_border_bit(to_maze, crossing.maze, crossing.a);
  }
  drop_stale(from_maze, to_maze);
}

void Pos_mark_roamertime(Maze *from_maze, int32_t from_node, Maze *to_maze, int32_t to_node,
                         double t) {
  const Crossing crossing = find_crossing({from_maze, from_node}, {to_maze, to_node});
  if (crossing.maze) Maze_mark_roamertime(crossing.maze, crossing.a, crossing.b, t);
}
