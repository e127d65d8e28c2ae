#pragma once

#include "generate/topologies.h"
#include "maze/maze.h"

// Makes an uncarved maze, which is already in its place, the submaze of node i: chooses its doors,
// then carves it. The slots of node i must be final, and no more than the submaze has nodes.
void Maze_attach_submaze(Maze *maze, int32_t i, Maze *submaze);

// Gives each node of the leaf mazes of a tree, except doors, a submaze with the given probability:
// made by `generator` for `size`, turned to line up with the node's edges, and carved. First
// spreads all mazes of the tree by `size`. The mazes must be carved, and the generator's must have
// at least as many nodes as a node has slots.
void Maze_nest(Maze *root, double probability, double size, SubmazeGenerator generator);

// Labels all mazes below: the label of the maze and ".01", ".02", ... in the order of their
// holders, or "1", "2", ... below a maze without a label.
void Maze_label_tree(Maze *root);
