#pragma once

#include <cstdint>

// The leading number of the GL_VERSION string, 2.1 for "2.1.2 ...".
double gl_version();

// Whether the context has an extension. `answer` caches the result: -1 unknown, 0 no, 1 yes. The
// extension string is searched only while it is unknown.
bool gl_has_extension(int32_t *answer, const char *name);

// Whether the driver is a known software renderer, by its name.
bool gl_is_software();

// Sets the current colour to 0xRRGGBB with an alpha of 1.
void gfx_set_colour(uint32_t colour);

// Loads a projection, column by column, and leaves the matrix mode at modelview.
void gfx_load_projection(const float matrix[16]);
void gfx_load_projection(const double matrix[16]);

// Pixel space: (x, y) counts from the top left of the window, also inside a part-window viewport.
// Depth test and depth writes are off in it, and on after the pop.
void gfx_push_2d();
void gfx_pop_2d();

// Blended, antialiased lines and points, `width` in pixels. Additive blending if `additive` is not
// 0, otherwise by alpha.
void smooth_lines_on(int32_t additive, float width);
void smooth_lines_off();

// Horizontal field of view in degrees, of the whole frame and of its central 4:3 region.
double gfx_fov();
double gfx_fov_43();

// Projects a point to window pixels, with y downward. Matrices are column by column, the viewport
// is x, y, width and height. A point in the plane of the eye gives values that are not finite.
void gfx_project(double x, double y, double z, double *out_x, double *out_y,
                 const double *projection, const double *modelview, const int32_t *viewport);

// World length of one pixel in the plane z = 0 of the current modelview, without the perspective
// divide. Infinite if that plane is seen edge on, and for an empty viewport.
double gfx_units_per_pixel();
