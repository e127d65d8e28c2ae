#pragma once

#include <cstdint>

// Texts on the screen and in the world, drawn with the current font.

// How texts are blended with what is there: 1 replaces, 2 multiplies, 3 covers by the brightness of
// the glyph, which is what the fonts hold, 4 by alpha.
extern int32_t text_blend_mode;

// A last scale of texts in pixel space.
extern float text_scale_x;
extern float text_scale_y;

// A block of texts in pixel space. No GL state may change inside.
void text_begin();
void text_end();

// Draws a text inside a block, as text_layout lays it out, in a colour 0xRRGGBB. Returns the y of
// the pen after it, in pixels downward.
float text_print(float x, float y, float wrap_x, float bottom_y, const char *text, uint32_t colour);

// A block of texts in the world, tested against its depth and lit like it. The caller sets the
// colour, and no other state may change inside.
void text3d_begin();
void text3d_end();

// Draws a text inside such a block from (x, y, z), a glyph cell's top left corner. `step` is the
// way along the line of one cell's height, `line` the way from a line of text to the next, in world
// units. There are no commands here; byte 9 moves on by a step.
void text3d_print(double x, double y, double z, const char *text, double line_x, double line_y,
                  double line_z, double step_x, double step_y, double step_z);
