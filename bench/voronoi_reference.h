#pragma once

#include <vector>

#include "render/voronoi_geometry.h"

// Reference implementation of the cells of a maze: each is cut by every node of its ball query.
std::vector<std::vector<VoronoiCorner>> reference_voronoi(Maze *maze, int32_t across_levels);
