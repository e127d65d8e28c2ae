#pragma once

#include "maze/maze.h"

// Times of visits. `t` is the session clock in seconds.

// Sets the user's time of the edge and of node b; counts b in `visited` if it had no time.
void Maze_mark_usertime(Maze *maze, int32_t a, int32_t b, double t);

// The same for a Roamer's time, without the count.
void Maze_mark_roamertime(Maze *maze, int32_t a, int32_t b, double t);

// Records a step of the user along an entry of Pos_alledges. A step between mazes is recorded at
// the edge of their holders, and sets a bit in the border mask of each maze left or entered. Drops
// the attachments that the step makes stale.
void Pos_mark_usertime(Maze *from_maze, int32_t from_node, Maze *to_maze, int32_t to_node,
                       double t);

// The same for a Roamer, but sets times only, and touches the attachments that show them.
void Pos_mark_roamertime(Maze *from_maze, int32_t from_node, Maze *to_maze, int32_t to_node,
                         double t);
