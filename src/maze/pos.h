#pragma once

#include "maze/maze.h"

// What makes a tree of mazes one connected graph: every walker and every plot asks here what is
// joined to what.

constexpr int32_t pos_max_edges = 9; // eight rows and a way out

// The row of `node` that leads to `target`, searched from the last row; -1 if there is none.
int32_t MazeNode_row(const MazeNode &node, int32_t target);

// The door, towards `from`, of the maze that node `to` of `maze` holds. Pos_null if that maze's
// parent is not `maze` or `from` is no neighbour of its holder.
Pos Pos_submaze_enter(Maze *maze, int32_t from, int32_t to);

// Where the way out of door `node` leads: the plain neighbour of the holder, or the facing door of
// a sibling. Pos_null if the node is no door.
Pos Pos_submaze_exit(Maze *maze, int32_t node);

// Everything that one can walk to from (maze, node): the neighbours in row order, the way out last.
// `out` and, if not null, `edges_out` have room for pos_max_edges; returns the number of entries.
// A tree whose border rule is broken is a fatal report.
int32_t Pos_alledges(Maze *maze, int32_t node, Pos *out, MazeEdge *edges_out);

// The same with `all_levels`; with 0 only the node's own rows, whose ends may be containers.
int32_t Pos_edges(Maze *maze, int32_t node, int32_t all_levels, Pos *out, MazeEdge *edges_out);

// World position of the place.
Vec3 Pos_position(Pos pos);
