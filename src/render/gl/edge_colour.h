#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The colour rules of edges and nodes that all plots share.

// The colour of a whole submaze once the user has broken through its border: by one door, by
// several, by all. `fallback` for a maze whose border is whole, and for the root.
uint32_t border_colour(const Maze *maze, uint32_t fallback);

// The colour, without ages, of the record of `a` towards `b`, or of a's own with `b` null: the
// border's colour within a broken level, else `colour`. An edge that leaves the level keeps its
// own.
uint32_t edge_colour(uint32_t colour, Pos a, Pos b);

// The same with the ages of the user's and the Roamers' last crossings added, unless `world` is
// null or has its trail switched off.
uint32_t visit_colour(const MazeEdge &row, Pos a, Pos b, const World *world);
