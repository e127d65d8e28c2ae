#pragma once

#include "maze/maze.h"

// Changes to the graph of one maze. All but the first two keep the edges symmetric.

// Appends a slot with the default record for the neighbour `target`; the node must not be full.
// This is half an edge: the caller adds the other half.
void MazeNode_append_slot(MazeNode *node, int32_t target);

// Removes slot r, which is half an edge; the last slot moves to r.
void MazeNode_remove_slot(MazeNode *node, uint32_t r);

// Joins two nodes that are not joined yet, with default records. Does nothing if either is full.
void Maze_join(Maze *maze, int32_t a, int32_t b);

// Removes every edge between a and b; in each node the last slot moves to a removed one.
void Maze_cut(Maze *maze, int32_t a, int32_t b);

// Cuts all edges of the node and removes it; the last node takes its index. Does not update the
// parentnode of the moved node's submaze: use it only without submazes, or on shallow copies.
void Maze_delete_node(Maze *maze, int32_t i);

// Swaps the indices of two nodes. Does not update the parentnode of their submazes.
void Maze_swap_nodes(Maze *maze, int32_t a, int32_t b);

// Chooses the doors: for j = 0, 1, ... swaps the node nearest to neighbour j of the holder, among
// those with index j or more, to index j. The holder's slots must be final. No effect at the root.
void Maze_align_doors(Maze *maze);

// Appends another maze, `b`, to `a`. A node of `a` within 0.75 world units of nodes of `b` is
// replaced by the nearest of them. Its edges lead there instead; those between two replaced nodes,
// or to a full node, are lost. Two edges between the same nodes can result. Not for submazes.
void Maze_weld_onto(Maze *a, const Maze *b);

// The same on a copy of `a`, owned by the caller.
Maze *Maze_weld(const Maze *a, const Maze *b);

// Appends the neighbours of all nodes to the text file `path`, under a title. Returns 1 or 2 if the
// last error found is a node joined to itself or twice to another, else 0. Returns -1, after a
// sentence to the user, if the file can't be written.
int32_t Maze_dump(const Maze *maze, const char *path, const char *title);
