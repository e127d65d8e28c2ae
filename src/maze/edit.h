#pragma once

#include "maze/maze.h"

// Changes to the graph of one maze. All but the first two keep its rows symmetric if they were.

// Appends a default row towards `target` to a node that isn't full. Half of an edge: the caller
// sees to the other half.
void MazeNode_append_row(MazeNode *node, int32_t target);

// Removes row r of a node; the last row moves into the hole. Half of an edge, as above.
void MazeNode_remove_row(MazeNode *node, uint32_t r);

// Joins two different nodes that are not joined yet, with default records on both sides. Nothing
// happens if either node is full.
void Maze_join(Maze *maze, int32_t a, int32_t b);

// Removes every row of a towards b and of b towards a; each last row moves into the hole.
void Maze_cut(Maze *maze, int32_t a, int32_t b);

// Cuts all rows of the node and removes it; the last node takes its index. A submaze of the moved
// node is not told, so this is for mazes without submazes or for shallow copies.
void Maze_delete_node(Maze *maze, int32_t i);

// Makes two nodes exchange their indices. A submaze is not told its new parentnode.
void Maze_swap_nodes(Maze *maze, int32_t a, int32_t b);

// Gives each door its index: for j = 0, 1, ... the node with index j or more that is nearest to
// neighbour j of the holder is swapped to index j. Does nothing without a parent; the holder's
// rows must be final.
void Maze_align_doors(Maze *maze);

// Lays `b`, another maze, over `a`: nodes within 0.75 world units of each other become one, and b's
// survives. Edges of `a` between two merged nodes go; those with one merged end are carried over,
// or lost if the node there is full. Two such edges may end at one node, which leaves a doubled
// edge. Neither maze may hold submazes.
void Maze_weld_onto(Maze *a, const Maze *b);

// The same on a copy of `a`, owned by the caller.
Maze *Maze_weld(const Maze *a, const Maze *b);

// Appends the neighbour tables to the text file `path` under a title. Returns 0 if no node is
// joined to itself or to another twice, else 1 or 2 for the kind of fault found last; -1, with a
// sentence to the user, if the file can't be written.
int32_t Maze_dump(const Maze *maze, const char *path, const char *title);
