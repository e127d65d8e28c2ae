#pragma once

#include "world/world.h"

// The camera follows the user at the distance `zoom`, in the direction of the third row of `view`.

// The view for a yaw about z and a pitch about x, in radians: Rx(pitch) Rz(yaw).
Mat3 camera_orientation(double yaw, double pitch);

// Clamps the pitch to -pi..0, sets `view`, and moves the eye around the followed point.
void World_turn_view(World *world, double yaw, double *pitch);

// Moves the eye by the fraction min(1, 10 dt) of the distance to its ideal position; `followed` is
// World_follow_point, dt is in seconds. An eye whose position is not finite moves there at once.
void World_chase(World *world, Vec3 followed, double dt);
