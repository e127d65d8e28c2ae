#pragma once

#include <cstdint>
#include <vector>

#include "maze/maze.h"
#include "support/box.h"

// What the modes of the Voronoi plot draw for one cell. Each function appends the vertices of whole
// primitives for a plain node of a maze with cells, whose colour is given. An empty cell adds
// nothing.

struct ShapeVertex {
  Vec3 place;
  Vec3 normal; // of length 1, or zero for a face without area
  uint32_t colour;
};

using ShapeList = std::vector<ShapeVertex>;

// Lines along the cell's edges at the node's height, darker where the cells are joined or end. No
// normals.
void voronoi_outline(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);

// Triangles of a box: a floor, walls a tenth of the way to the node, and a skirt below the border.
// Walls are half as high, and the skirt is as deep, as the distance to the farthest adjacent node.
void voronoi_box(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);

// Triangles from the node to its cell's edges, with each corner at the mean height of the three
// nodes whose cells meet there.
void voronoi_terrain(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);

// Triangles between nodes whose cells meet in a corner, each drawn by the node with the lowest
// index.
void voronoi_delaunay(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);

// Quads of the walls on that ground, 0.5 high and 0.2 thick, on the edges between cells of nodes
// that are not joined; each is drawn by the node with the lower index. Edges below 0.05 have none.
void voronoi_walls(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);

// Grows the box to contain these walls.
void voronoi_add_walls(Box *box, Maze *maze, int32_t node);

// The height at (x, y) of the plane through three points, from their barycentric weights in x and
// y. Undefined or not finite if the points are collinear in x and y.
double plane_height(Vec3 a, Vec3 b, Vec3 c, double x, double y);
