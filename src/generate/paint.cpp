#include "generate/paint.h"

#include <cmath>

#include "maze/walk.h"
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

void Maze_paint(Maze *root, uint32_t colour, int32_t recursive) {
  Maze_each_node(root, recursive != 0, [colour](Maze *maze, int32_t i) {
    MazeNode &node = maze_nodes(maze)[i];
    node.self.colour = colour;
    for (uint32_t row = node.degree; row-- > 0;)
      node.edge[row].colour = colour;
  });
}

void Maze_colour_field(Maze *root, ColourFunction fn, int32_t recursive) {
  Maze_each_node(root, recursive != 0, [fn](Maze *maze, int32_t i) {
    MazeNode *nodes = maze_nodes(maze);
    nodes[i].self.colour = fn(node_position(nodes[i]));
    for (uint32_t row = nodes[i].degree; row-- > 0;)
      if (nodes[i].nbr[row] < i) colour_edge(nodes, i, row, fn);
  });
}

uint32_t colour_field_sine(Vec3 p) {
  return rgb_colour(slow_sine(p.x), slow_sine(p.y), slow_sine(p.z));
}
