#pragma once

#include "world/world.h"

// Walkers that leave their own times on the edges they cross. `cur` is a node without a submaze;
// `prev` is another one, or Pos_null before the first step.

constexpr uint32_t max_roamers = 10000;    // that the program keeps
constexpr double min_roamer_period = 0.15; // seconds
constexpr double max_roamer_period = 0.6;  // seconds

// Adds or removes Roamers until there are `count`. A new one gets a random node without a submaze,
// any of them with the same probability, a random period, and a random time to its first step: if
// all began at once, many would step in the same frame ever after. The tree must have such a node.
void World_set_roamers(World *world, uint32_t count);

// Advances a Roamer's timer by dt seconds. When it runs out, takes a random step; goes straight
// back only if fifty draws find no other way.
void Roamer_step(Roamer *roamer, World *world, double dt);

// The same for all Roamers, from the last to the first.
void World_step_roamers(World *world, double dt);
