#pragma once

#include <cstdint>

#include "world/world.h"

// Takes random steps, which leave a trail. Turns back only at dead ends. Draws from support/random.
// The session clock advances with each step.
void World_walk(World *world, int32_t steps);
