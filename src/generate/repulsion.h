#pragma once

#include <vector>

#include "support/vec3.h"

// For each place the sum of forces from all others: each pushes along the line between the two with
// the inverse cube of their distance. No cut-off; places that coincide get non-finite forces.
std::vector<Vec3> repulsion(const std::vector<Vec3> &places);
