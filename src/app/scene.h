#pragma once

#include "world/world.h"

// Draws the world in two depth slabs, the far one first, and leaves a clean depth buffer for what
// comes on top; one depth range can't hold both the node under the camera and the far scenery. The
// projection is left with the near slab's depth.
void stereo_scene(const World *world);
