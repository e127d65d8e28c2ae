#pragma once

#include <cstdint>

// The 4 x 4 projections as plain numbers: 16 floats, column by column as OpenGL counts them.

// The perspective of a frame of that size: the central 4:3 region spans 90 degrees across, near
// plane 0.1, far plane 1000. A width or height below 1 gives no infinities.
void projection_perspective(int32_t width, int32_t height, float out[16]);

// Pixel space with y downward: the given edges, near to far, as glOrtho has it.
void projection_ortho(double left, double right, double bottom, double top, double near, double far,
                      float out[16]);

// Changes the two depth elements of a perspective to the far slab (1000 to about 1e7) or the near
// one (0.1 to about 1001.5); all other elements stay.
void projection_far_slab(float matrix[16]);
void projection_near_slab(float matrix[16]);
