#pragma once

#include <vector>

#include "maze/maze.h"
#include "support/vec3.h"

// Changes to the places of all nodes of a maze and, with `recursive`, of all mazes below it.

using PositionFunction = Vec3 (*)(Vec3 position);

void Maze_translate(Maze *maze, Vec3 v, int32_t recursive);

// About the origin.
void Maze_scale(Maze *maze, double k, int32_t recursive);

// By the length of `v` in radians, right-handed, about its direction; a zero vector turns nothing.
void Maze_rotate(Maze *maze, Vec3 v, int32_t recursive);

void Maze_map_positions(Maze *maze, PositionFunction fn, int32_t recursive);

// Adds 4 (sin(x / 4) + sin(y / 4)) to each z: rolling hills.
void Maze_height_wave(Maze *maze, int32_t recursive);

// A periodic stretch: each coordinate c becomes (4 c + 3 sin c) / 2.
Vec3 warp_position(Vec3 p);

// The smallest box around all plain nodes of the tree and node 0 of each of its mazes. Where there
// are no nodes, `min` is above `max`.
void Maze_bounds(const Maze *root, Vec3 *min, Vec3 *max);

struct TreeBounds {
  Vec3 min, max;
};

// The same boxes for all mazes of the tree, in the order of Maze_next, in time linear in the nodes.
// A shallow copy that shares submazes may be passed to either.
std::vector<TreeBounds> Maze_tree_bounds(const Maze *root);

// Moves this maze's own nodes so that their mean place is the origin.
void Maze_centre(Maze *maze);

// Direction of a node's edges in the x-y plane modulo a quarter turn, in radians; 0 for a node
// without edges there. The fourfold angle makes the four directions of a grid count as one.
double Maze_quad_angle(const Maze *maze, int32_t node);
