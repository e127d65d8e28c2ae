#include "generate/paint.h"

#include <cmath>

#include "support/colour.h"

namespace {

double slow_sine(double c) {
  return 0.25 * (std::sin(0.1 * c) + 1.0);
}

// Colours both halves of an edge, of which one is a row of node i, by the middle between its ends.
void colour_edge(MazeNode *nodes, int32_t i, uint32_t row, ColourFunction fn) {
  MazeNode &here = nodes[i];
  MazeNode &there = nodes[here.nbr[row]];
  const uint32_t colour = fn((node_position(here) + node_position(there)) * 0.5);
  here.edge[row].colour = colour;
  for (uint32_t back = there.degree; back-- > 0;)
    if (there.nbr[back] == i) there.edge[back].colour = colour;
}

} // namespace

void Maze_paint(Maze *maze, uint32_t colour, int32_t recursive) {
  for (int32_t i = maze_count(maze); i-- > 0;) {
    MazeNode &node = maze_nodes(maze)[i];
    node.self.colour = colour;
    for (uint32_t row = node.degree; row-- > 0;)
      node.edge[row].colour = colour;
    if (recursive != 0 && node.submaze != nullptr) Maze_paint(node.submaze, colour, recursive);
  }
}

void Maze_colour_field(Maze *maze, ColourFunction fn, int32_t recursive) {
  MazeNode *nodes = maze_nodes(maze);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    MazeNode &node = nodes[i];
    const Vec3 p = node_position(node);
    node.self.colour = fn(p);
    for (uint32_t row = node.degree; row-- > 0;)
      if (node.nbr[row] < i) colour_edge(nodes, i, row, fn);
    if (recursive != 0 && node.submaze != nullptr) Maze_colour_field(node.submaze, fn, recursive);
  }
}

uint32_t colour_field_sine(Vec3 p) {
  return rgb_colour(slow_sine(p.x), slow_sine(p.y), slow_sine(p.z));
}
