#pragma once

#include <vector>

#include "maker/plot_names.h"
#include "maze/maze.h"

// What plots draw, for framing it.

// A part of space; a radius of 0 is a point.
struct ExtentBall {
  Vec3 centre;
  double radius; // world units
};

// Builds what drawn_extent needs.
void drawn_extent_begin(const PlotName &plot, Maze *root);

// Appends balls around all that a plot draws for a node. Ribbons are drawn up to 0.5 % of their
// distance wider on each side. A node with a submaze adds nothing.
void drawn_extent(const PlotName &plot, Maze *maze, int32_t node, std::vector<ExtentBall> *out);

// Appends the corners of the names that a plot draws. Needs the font "fmod".
void drawn_extent_of_names(const PlotName &plot, const Maze *root, std::vector<ExtentBall> *out);
