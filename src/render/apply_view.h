#pragma once

#include "world/world.h"

// Multiplies the current GL matrix by the world's view rotation and by the way to its camera.
void World_apply_view(const World *world);
