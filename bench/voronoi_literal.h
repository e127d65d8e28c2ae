#pragma once

#include <vector>

#include "render/voronoi_geometry.h"

// The cells of a maze cut step by step by every node of the query, with nothing made quicker.
std::vector<std::vector<VoronoiCorner>> literal_voronoi(Maze *maze, int32_t across_levels);
