#pragma once

#include <vector>

#include "maze/maze.h"

// The edges of a tree of mazes, across its levels. Nothing else defines which nodes are joined.

constexpr int32_t pos_max_edges = 9; // eight slots and the way out

// The last slot of `node` that leads to `target`; -1 if there is none.
int32_t MazeNode_find_slot(const MazeNode &node, int32_t target);

// The door through which one enters the submaze of node `to` from node `from`. Pos_null if the
// submaze's parent is not `maze` or if `from` is no neighbour of `to`.
Pos Pos_submaze_enter(Maze *maze, int32_t from, int32_t to);

// Where the way out through door `node` leads: to a neighbour of the holder or, if that holds a
// maze, to the door on its near side. Pos_null if the node is no door.
Pos Pos_submaze_exit(Maze *maze, int32_t node);

// All places that one can step to from (maze, node): the neighbours in the order of the slots, then
// the way out. `out` and, if not null, `edges_out` get up to pos_max_edges entries; returns their
// number. A tree that is not well formed is a fatal report.
int32_t Pos_alledges(Maze *maze, int32_t node, Pos *out, MazeEdge *edges_out);

// The same if `all_levels`; otherwise only the node's own slots, which may lead to holders.
int32_t Pos_edges(Maze *maze, int32_t node, bool all_levels, Pos *out, MazeEdge *edges_out);

// An entry of Pos_edges.
struct PosEdge {
  Pos end;
  const MazeEdge *row; // in the tree
  int32_t index;       // in the list of Pos_edges
};

// The entries of Pos_edges whose first end is (maze, node) (Pos_before), last entry first. `out`
// gets up to pos_max_edges entries; returns their number.
int32_t Pos_first_end_edges(Maze *maze, int32_t node, bool all_levels, PosEdge *out);

// World position of the node.
Vec3 Pos_position(Pos pos);

// The positions of all nodes, by index.
std::vector<Vec3> Maze_node_positions(const Maze *maze);

// Whether the user or a Roamer can be there: a node without a submaze. False for Pos_null.
bool Pos_is_place(Pos pos);
