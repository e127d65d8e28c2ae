#pragma once

#include <cstddef>
#include <vector>

// The convex hull of many points in a plane, without keeping them all.

struct PlanePoint {
  double x, y;
};

struct ConvexHull {
  std::vector<PlanePoint> points; // the vertices, and points that were added since
  size_t limit = 4096;            // of points, before the hull is computed again
  std::vector<PlanePoint> core;   // some of the vertices: points between them are not kept
};

// Adds a point. Points that are not finite are ignored.
void hull_add(ConvexHull *hull, PlanePoint point);

// Leaves only the vertices.
void hull_reduce(ConvexHull *hull);
