#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The colours of edges and nodes, which are the same in all plots.

// The colour of a whole submaze once the user has crossed its border: through one door, several, or
// all. `fallback` for the root, and for a maze whose border was never crossed.
uint32_t border_colour(const Maze *maze, uint32_t fallback);

// The colour, without ages, of the edge record of `a` that leads to `b`, or of a's own record if
// `b` is null: the border's colour in a maze whose border was crossed, else `colour`. An edge to
// another maze keeps its own. White, which is the user's, becomes almost white.
uint32_t edge_colour(uint32_t colour, Pos a, Pos b);

// The same plus the colours of the ages of the user's and the Roamers' last crossings, unless
// `world` is null or hides its trail. A Roamer's trail is the age colour times 0x40FF80. Both
// trails add.
uint32_t visit_colour(const MazeEdge &row, Pos a, Pos b, const World *world);
