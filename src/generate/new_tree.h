#pragma once

#include "generate/topologies.h"
#include "maze/maze.h"

// A kind of tree that can be made by name.
struct MazeKind {
  const char *name;
  SubmazeGenerator build;
  double size; // the side in Maze_new_tree; 0: the builder ignores it, and the tree is labelled
  double node_factor; // it has about node_factor * size^node_power nodes
  int32_t node_power;
  int32_t min_size;       // below it trees can be empty or have too few doors
  int32_t nesting_passes; // of mazes of the same size
  int32_t draws;          // how many of the draws of Maze_new_tree make it
  int32_t node_bytes;     // of memory per node while it is made: the most that was measured
  bool carve;             // its builder makes an uncarved graph
};

// The kind of that name: plane, grid, hexagon, honeycomb, polar, sphere, box, torus, band, nested,
// nested-twice, patchwork or ladder. Null if there is none.
const MazeKind *MazeKind_find(const char *name);

// About how many nodes a tree of that kind and size gets, nested mazes included.
double MazeKind_nodes(const MazeKind &kind, double size);

// A new random tree of one kind, carved, with the final spacing of 2.5 world units. A patchwork of
// topologies and a ladder of mazes with growing corridor widths have labels. Other kinds have
// random colours, and some have hills or are stretched. Owned by the caller.
Maze *Maze_new_of_kind(const MazeKind &kind, double size);

// The same of a kind by mode: 1 for a patchwork, 2 for a ladder, any other for a random kind among
// those with draws.
Maze *Maze_new_tree(int32_t mode);
