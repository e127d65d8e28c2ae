#pragma once

#include <cstdint>

// The colour last given to glClearColor, 0xRRGGBB; the start value matches no colour.
constexpr uint32_t clear_colour_unknown = 0x1000000;
extern uint32_t remembered_clear_colour;

// Ends a frame: waits for the drawing, shows it, clears colour (0xRRGGBB) and depth, and loads an
// identity modelview.
void gfx_swap(uint32_t clear_colour);

// The leading number of the GL_VERSION string, 2.1 for "2.1.2 ...".
double gl_version();

// Whether the context has that extension. `answer` keeps what was found: -1 unknown, 0 no, 1 yes;
// only an unknown one searches the list of extensions.
bool gl_has_extension(int32_t *answer, const char *name);

// Whether the processor does the drawing, as far as the driver's name tells.
bool gl_is_software();

// Pixel space: (x, y) counts from the top left of the window also inside a part-window viewport,
// with the depth test and depth writes off. The pop turns both on.
void gfx_push_2d();
void gfx_pop_2d();

// Blended, antialiased lines and points, `width` in pixels; additive or mixed.
void smooth_lines_on(int32_t additive, float width);
void smooth_lines_off();

// Horizontal field of view in degrees, of the whole frame and of its central 4:3 region.
double gfx_fov();
double gfx_fov_43();

// A point to window pixels, y downward; matrices column by column, viewport as x, y, width,
// height. A point in the eye's plane gives values that are not finite.
void gfx_project(double x, double y, double z, double *out_x, double *out_y,
                 const double *projection, const double *modelview, const int32_t *viewport);

// World length of one pixel in the plane z = 0 of the current modelview, without the perspective
// divide. Infinite where that plane is seen edge on, and for an empty viewport.
double gfx_units_per_pixel();

// Frames that a buffer swap waits for, where the platform can be told.
void swap_interval(int32_t frames);
