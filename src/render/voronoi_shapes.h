#pragma once

#include <cstdint>
#include <vector>

#include "maze/maze.h"
#include "world/world.h"

// What the modes of the Voronoi plot draw of one cell. Each of these appends the vertices of whole
// primitives for a plain node of a maze whose cells have been computed. An empty cell adds nothing.

struct ShapeVertex {
  Vec3 place;
  Vec3 normal; // of length 1, or zero on a face without area
  uint32_t colour;
};

using ShapeList = std::vector<ShapeVertex>;

// Lines along the cell's edges at the node's height, bright where there is a wall. No normals.
void voronoi_outline(ShapeList *out, Maze *maze, int32_t node, const World *world);

// Triangles of a room: a floor, walls a tenth of the way in, and a skirt below the border. Wall and
// skirt are half as high, and as deep, as the furthest of the nodes next to it is away.
void voronoi_room(ShapeList *out, Maze *maze, int32_t node, const World *world);

// Triangles from the node to its cell's edges, each corner at the mean height of the three nodes
// that meet there.
void voronoi_terrain(ShapeList *out, Maze *maze, int32_t node, const World *world);

// The triangles between nodes whose cells meet in a corner, of which this node is the first, in the
// node's colour.
void voronoi_delaunay(ShapeList *out, Maze *maze, int32_t node, const World *world);

// The same in a colour that shows no ages.
void voronoi_ground(ShapeList *out, Maze *maze, int32_t node, const World *world);

// Quads of the walls on that ground, 0.5 high and 0.2 thick, along the edges to nodes that are not
// joined to this one; each stands with the first of its two nodes. None on an edge below 0.05.
void voronoi_walls(ShapeList *out, Maze *maze, int32_t node, const World *world);

// The height at (x, y) of the plane through three points, by their barycentric weights in x and y.
// Points that lie in a line give a height that means nothing or is not finite.
double plane_height(Vec3 a, Vec3 b, Vec3 c, double x, double y);
