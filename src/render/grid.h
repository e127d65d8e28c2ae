#pragma once

#include "world/world.h"

// Draws a square grid in the horizontal plane of the current node, at seven decades of spacing at
// once so that one of them always suits the view. It follows the node in steps and writes no depth.
void grid_overlay(const World *world);
