#pragma once

#include "world/world.h"

// Draws a frame of the world in a stereo mode (see gfx/stereo.h), with the setting "Stereo Depth".
// `followed` is World_follow_point.
void scene_draw(const World *world, Vec3 followed, int32_t stereo_mode, int32_t stereo_swap,
                double stereo_depth);

// Draws the World behind the pointer for one eye, within scene_draw. One depth range can't hold
// both the node under the camera and the far scenery, so it draws two slabs, the far one first. The
// projection keeps the depth range of the near slab; the depth buffer is cleared for the overlays.
void stereo_scene(const void *world);
