#pragma once

#include "maze/maze.h"

// Reduces each component of a maze to a random spanning tree by reverse deletion: tries each edge
// once, in random order, and deletes it unless that would disconnect its ends. Keeps indices,
// positions, colours, submazes, halfwidth and name; edges lose their times. The slots of a node
// change their order: each kept edge is removed, which moves the last slot to its place, and
// appended. Edges must be symmetric and must not join a node to itself; they can be doubled.
void Maze_carve(Maze *maze);

// A carved copy with copies of all submazes. Owned by the caller.
Maze *Maze_carved(const Maze *maze);
