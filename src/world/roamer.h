#pragma once

#include "world/world.h"

// Walkers that leave their own times on the edges they cross. Nothing creates one yet. A new one
// has a node without a submaze as `cur`, and Pos_null as `prev`.

// Advances a Roamer's timer by dt seconds. When it runs out, takes a random step; goes straight
// back only if fifty draws find no other way.
void Roamer_step(Roamer *roamer, World *world, double dt);

// The same for all Roamers, from the last to the first.
void World_step_roamers(World *world, double dt);
