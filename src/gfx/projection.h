#pragma once

#include <cstdint>

// 4 x 4 projections as 16 floats, column by column as in OpenGL.

// The perspective for a frame in pixels: the central 4:3 region spans 90 degrees horizontally, the
// near plane is at 0.1, the far plane at 1000. A width or height below 1 counts as 1.
void projection_perspective(int32_t width, int32_t height, float out[16]);

// An orthographic projection with the parameters of glOrtho. The identity if two of a pair are
// equal.
void projection_ortho(double left, double right, double bottom, double top, double near, double far,
                      float out[16]);

// Changes the depth range of a perspective to the far slab (1000 to about 1e7) or the near slab
// (0.1 to about 1001.5). All other elements stay.
void projection_far_slab(float matrix[16]);
void projection_near_slab(float matrix[16]);
