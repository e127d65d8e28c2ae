#pragma once

#include "world/world.h"

// The following camera: on a stick of length `zoom` from the followed point, on the side that
// `view` says.

// Rotation of the view for a yaw about z and a pitch about x, radians: Rx(pitch) Rz(yaw).
Mat3 camera_orientation(double yaw, double pitch);

// Clamps the pitch to -pi..0, rebuilds `view`, and swings the eye round the followed point at once.
void World_turn_view(World *world, double yaw, double *pitch);

// Lets the eye cover min(1, 10 dt) of its way to its ideal place; dt in seconds. An eye that is
// not at a finite place is put there at once.
void World_chase(World *world, double dt);
