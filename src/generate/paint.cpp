#include "generate/paint.h"

#include <bit>
#include <cmath>
#include <numbers>

#include "maze/traversal.h"
#include "support/colour.h"
#include "support/trigonometry.h"

namespace {

// A colour channel that varies with a coordinate, 0 to 255 / 2.
uint32_t exact_channel(double c) {
  return rgb_colour(0, 0, 0.25 * (portable_sin(0.1 * c) + 1.0));
}

// The sine of x within 1e-7, for |x| up to 1e5: a Taylor series around the nearest multiple of pi.
double rough_sine(double x) {
  constexpr double rounder = 0x1.8p52; // a sum with it is whole, and its lowest bit is the parity
  const double shifted = x * std::numbers::inv_pi + rounder;
  const double r = x - (shifted - rounder) * std::numbers::pi;
  const double r2 = r * r;
  const double high_terms =
      1.0 / 120 + r2 * (-1.0 / 5040 + r2 * (1.0 / 362880 - r2 * (1.0 / 39916800)));
  const double sine = r + r * r2 * (-1.0 / 6 + r2 * high_terms);
  return (std::bit_cast<uint64_t>(shifted) & 1) != 0 ? -sine : sine;
}

// The same as exact_channel(c). The rough sine is enough unless it is near the step between two
// channels; it takes a quarter of the time.
uint32_t sine_channel(double c) {
  constexpr double margin = 1e-4; // more than 255 / 4 times the error
  if (!(std::abs(c) < 1e6)) return exact_channel(c);
  const double rough = 255 * 0.25 * (rough_sine(0.1 * c) + 1.0) + 0.5;
  const auto low = static_cast<uint32_t>(rough - margin);
  const auto high = static_cast<uint32_t>(rough + margin);
  return low == high ? low : exact_channel(c);
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
  return sine_channel(p.x) << 16 | sine_channel(p.y) << 8 | sine_channel(p.z);
}
