#pragma once

#include "maze/maze.h"

// The marks that a walk leaves. `t` is the session clock in seconds.

// Writes `t` on both halves of the edge and on the node arrived at, b; counts b in `visited` if it
// had no time yet.
void Maze_mark_usertime(Maze *maze, int32_t a, int32_t b, double t);

// The same with a Roamer's time, without the count.
void Maze_mark_roamertime(Maze *maze, int32_t a, int32_t b, double t);

// Records a step of the user along an entry of Pos_alledges. A step between levels is recorded on
// the level of the holding nodes, with a bit in the border mask of each maze left or entered.
// Drops the cached drawings that the step makes stale.
void Pos_mark_usertime(Maze *from_maze, int32_t from_node, Maze *to_maze, int32_t to_node,
                       double t);

// The same for a Roamer: times only.
void Pos_mark_roamertime(Maze *from_maze, int32_t from_node, Maze *to_maze, int32_t to_node,
                         double t);
