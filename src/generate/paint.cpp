#include "generate/paint.h"

#include <cmath>

#include "maze/walk.h"
#include "support/colour.h"

namespace {

double slow_sine(double c) {
  return 0.25 * (std::sin(0.1 * c) + 1.0);
}

// Colours both halves of the edge in a slot of node i.
void colour_edge(MazeNode *nodes, int32_t i, uint32_t slot, ColourFunction fn) {
  MazeNode &here = nodes[i];
  MazeNode &there = nodes[here.nbr[slot]];
  const uint32_t colour = fn((node_position(here) + node_position(there)) * 0.5);
  here.edge[slot].colour = colour;
  for (uint32_t back = there.degree; back-- > 0;)
    if (there.nbr[back] == i) there.edge[back].colour = colour;
}

} // namespace

void Maze_paint(Maze *root, uint32_t colour, int32_t recursive) {
  Maze_each_node(root, recursive != 0, [colour](Maze *maze, int32_t i) {
    MazeNode &node = maze_nodes(maze)[i];
    node.self.colour = colour;
    for (uint32_t slot = node.degree; slot-- > 0;)
      node.edge[slot].colour = colour;
  });
}

void Maze_colour_field(Maze *root, ColourFunction fn, int32_t recursive) {
  Maze_each_node(root, recursive != 0, [fn](Maze *maze, int32_t i) {
    MazeNode *nodes = maze_nodes(maze);
    nodes[i].self.colour = fn(node_position(nodes[i]));
    for (uint32_t slot = nodes[i].degree; slot-- > 0;)
      if (nodes[i].nbr[slot] > i) colour_edge(nodes, i, slot, fn);
  });
}

uint32_t colour_field_sine(Vec3 p) {
  return rgb_colour(slow_sine(p.x), slow_sine(p.y), slow_sine(p.z));
}
