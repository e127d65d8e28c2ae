#pragma once

#include "maker/options.h"
#include "world/world.h"

// Sets view and camera of the World as the options say. `extra_yaw` is added to the yaw, radians.
void camera_place(const Options &options, World *world, double extra_yaw);
