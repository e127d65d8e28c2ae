#pragma once

#include <cstddef>
#include <vector>

// The convex outline of many points in a plane, in little memory.

struct PlanePoint {
  double x, y;
};

struct Outline {
  std::vector<PlanePoint> points; // the corners, and points that were added since
  size_t limit = 4096;            // of points, before the outline is computed again
  std::vector<PlanePoint> core;   // some of the corners: points between them are not kept
};

// Adds a point. Points that are not finite are ignored.
void outline_add(Outline *outline, PlanePoint point);

// Leaves only the corners.
void outline_reduce(Outline *outline);
