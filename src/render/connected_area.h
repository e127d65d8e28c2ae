#pragma once

#include "world/world.h"

// Draws the part of the current maze that can be reached from the current node, blended over the
// picture, as the fixed plot would draw it if it were all blue. Ages and a broken border still
// show. Submazes are left out.
void connected_area_overlay(const World *world);
