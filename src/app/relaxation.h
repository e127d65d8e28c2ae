#pragma once

#include "maze/maze.h"

// The relaxations of a maze's layout while a key is held.
struct Relaxation {
  double simplify_rate; // grows from 1 while the key is held
};

// One frame of the relaxations whose keys are held; `dt` is the frame time in seconds. Moves the
// nodes of the maze with their submazes, drops the attachments that became stale, and returns
// whether anything moved.
bool relax_frame(Relaxation *relaxation, Maze *maze, double dt, bool simplify, bool experiment);
