#pragma once

#include "world/world.h"

// Walkers on the user's graph, which leave their own times on what they cross. Nothing adds one
// yet; who does gives it a plain node as `cur`, and Pos_null as `prev`.

// Lets a Roamer's timer run for dt seconds and, when it has run out, takes a step: at random, but
// not straight back unless there is hardly another way.
void Roamer_step(Roamer *roamer, World *world, double dt);

// The same for all Roamers of the world, from the last to the first.
void World_step_roamers(World *world, double dt);
