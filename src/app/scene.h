#pragma once

#include "world/world.h"

// Draws the World behind the pointer in two depth slabs, the far one first, and leaves a clean
// depth buffer for what comes on top; one depth range can't hold both the node under the camera and
// the far scenery. The projection is left with the near slab's depth.
void stereo_scene(const void *world);

// Draws it in a stereo mode (see gfx/stereo.h), with the setting "Stereo Depth".
void scene_draw(const World *world, int32_t stereo_mode, int32_t stereo_swap, double stereo_depth);

// The distance between the eyes, in world units, with which the point that the camera follows shows
// without a difference; of the frame's shape and the setting "Stereo Depth".
double stereo_eye_offset(const World *world, double stereo_depth);
