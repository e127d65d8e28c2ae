#pragma once

#include "world/world.h"

// Lays the part of the current maze that can be reached from the current node over the picture,
// alone and not the mazes in it, as the fixed plot would draw it if all of it were blue: a visit
// and a broken border still show.
void connected_area_overlay(const World *world);
