#pragma once

#include <cstdint>

// Drawing of texts on the screen and in the world, with the current font.

// How texts are blended with the background: 1 replaces it, 2 multiplies, 3 covers it by the
// brightness of the glyph, which is what the fonts store, 4 by alpha.
extern int32_t text_blend_mode;

// Begin and end a block of texts in pixel space. No GL state may change inside.
void text_begin();
void text_end();

// Draws a text inside a block, in a colour 0xRRGGBB, as laid out by text_layout. Returns the y of
// the pen after it, in pixels downward.
float text_print(float x, float y, float wrap_x, float bottom_y, const char *text, uint32_t colour);

// Begin and end a block of texts in the world, with its depth test and lighting. The caller sets
// the colour; no other state may change inside.
void text3d_begin();
void text3d_end();

// Draws a text inside such a block from (x, y, z), the top left corner of the first glyph cell.
// `step` is the vector along the line as long as a cell is high, `line` the vector from one line of
// text to the next, in world units. Commands have no meaning here; a tab moves the pen by a step.
void text3d_print(double x, double y, double z, const char *text, double line_x, double line_y,
                  double line_z, double step_x, double step_y, double step_z);
