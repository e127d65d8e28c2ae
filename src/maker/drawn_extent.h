#pragma once

#include <functional>

#include "maker/plot_names.h"
#include "maze/maze.h"

// Receives a ball in world units; a radius of 0 is a point.
using VisitBall = std::function<void(Vec3 centre, double radius)>;

// Visits balls around all that a plot draws of a tree, the names included, for framing it. Ribbons
// are drawn up to 0.5 % of their distance wider on each side. Builds the landscape's cells. Needs
// the font "fmod".
void drawn_extent(const NamedPlot &plot, Maze *root, const VisitBall &visit);
