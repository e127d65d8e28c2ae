#pragma once

#include "maze/maze.h"

// The two relaxations that act on a maze's layout while a key is held. Only the places of its nodes
// change, and of all that they hold.
struct Relaxation {
  double simplify_rate; // grows while the simplifying key is held, from 1
};

// One frame of them: `simplify` and `experiment` tell which key is held, `dt` is the frame time in
// seconds. Drops what plots keep of the maze and of all mazes below it if anything moved, which is
// returned.
bool relax_frame(Relaxation *relaxation, Maze *maze, double dt, bool simplify, bool experiment);
