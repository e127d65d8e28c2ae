#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "render/voronoi_corner.h"

// The Voronoi cells of a maze's nodes in the x-y plane: what is nearer to a node than to any other.
// Cells are local: each is cut out of a square that extends three times the node's longest edge to
// each side, by the nodes within five times that edge in space.

// No cell, nor a node whose cell meets it, is farther than this from its node, in lengths of the
// node's longest edge.
inline constexpr double voronoi_reach = 5.001;

// Computes the cells of a maze and attaches them as "voronoi", in place of older ones. With
// `across_levels` a node's neighbours are those of Pos_alledges in the same maze, which leaves out
// neighbours that hold a maze; without it, those of its own table.
void voronoi_build(Maze *maze, int32_t across_levels);

// Attaches cells to all mazes of a tree that have none. Each is computed when it is first asked
// for; what moves nodes drops them. Computes the bounds of all mazes at once.
void voronoi_attach_missing(Maze *root, int32_t across_levels);

bool voronoi_is_attached(const Maze *maze);

// Whether all nodes of a maze with cells have the same height.
bool voronoi_is_flat(const Maze *maze);

struct VoronoiCell {
  const VoronoiCorner *corners; // clockwise from above
  int32_t count;                // may be 0
};

// The cell of a node, valid until another is asked for or dropped. The maze must have cells.
VoronoiCell voronoi_cell(const Maze *maze, int32_t node);
