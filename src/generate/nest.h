#pragma once

#include "generate/topology.h"
#include "maze/maze.h"

// Makes an uncarved maze that stands in its place the one that node i holds: its doors are aligned,
// then it is carved. The rows of node i must be final, and no more than the room has nodes.
void Maze_settle(Maze *maze, int32_t i, Maze *room);

// Gives each node of the leaf mazes of the tree, doors aside, a maze of its own with the given
// probability: made by `generator` for `size`, turned in line with the node's edges, its doors
// aligned, carved. All mazes of the tree are first spread by `size` to make room. The mazes must be
// carved already, and what the generator makes must have as many nodes as a node has rows.
void Maze_nest(Maze *root, double probability, double size, SubmazeGenerator generator);

// Labels all mazes below: the maze's own name and ".01", ".02", ... in order of their nodes, or
// "1", "2", ... below a maze without a name.
void Maze_label_tree(Maze *root);
