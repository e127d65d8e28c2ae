#pragma once

#include <vector>

#include "maze/maze.h"
#include "support/box.h"

// Moves the nodes of a maze and, if `recursive` is not 0, of all mazes below it.

using PositionFunction = Vec3 (*)(Vec3 position);

void Maze_translate(Maze *maze, Vec3 v, int32_t recursive);

// Scales about the origin.
void Maze_scale(Maze *maze, double k, int32_t recursive);

// Rotates about the axis `v` by its length in radians, right-handed. No effect for a zero vector.
void Maze_rotate(Maze *maze, Vec3 v, int32_t recursive);

void Maze_map_positions(Maze *maze, PositionFunction fn, int32_t recursive);

// Adds hills: 4 (sin(x / 4) + sin(y / 4)) to each z.
void Maze_height_wave(Maze *maze, int32_t recursive);

// A periodic stretch: each coordinate c becomes (4 c + 3 sin c) / 2.
Vec3 warp_position(Vec3 p);

// The bounds of all nodes without submazes and of node 0 of each maze in the tree. Without nodes
// `min` is above `max`.
void Maze_bounds(const Maze *root, Vec3 *min, Vec3 *max);

// The same bounds for each maze of the tree, in the order of Maze_next, in linear time. Both
// functions accept a shallow copy that shares submazes.
std::vector<Box> Maze_tree_bounds(const Maze *root);

// Moves this maze's own nodes so that their mean is the origin.
void Maze_centre(Maze *maze);

// Mean direction of a node's edges in the x-y plane modulo a quarter turn, in radians; 0 without
// edges there. Averages the fourfold angles, so that the four directions of a grid count as one.
double Maze_quad_angle(const Maze *maze, int32_t node);
