#pragma once

#include <cstdint>

// A scene drawn for two eyes. Each eye is a small change of the matrices around the callback that
// draws; the modes differ in where the two pictures go. All routines begin and end in
// GL_MODELVIEW, with the projection and the modelview as they came.

// Draws the scene once, from what it was handed.
using StereoScene = void (*)(const void *context);

// Made at first use, and anew where the frame's size takes other powers of two.
extern uint32_t stereo_eye_textures[2];
extern uint32_t stereo_eye_tex_width, stereo_eye_tex_height;
extern uint32_t interlace_texture;
extern uint32_t interlace_tex_width, interlace_tex_height;

// One of the modes: 0 draws once; 1 to 3 are stereo_split's, 4 and 5 stereo_two_screen's, 6 to 8
// stereo_colour's; anything above draws nothing, and below 0 is taken for 1. `eye_offset` is the
// distance between the eyes in world units, `neg_depth` minus how far their axes are turned, and
// `swap` exchanges the eyes.
void stereo_render(StereoScene scene, const void *context, int32_t mode, int32_t swap,
                   double eye_offset, double neg_depth);

// Each eye squeezed into half the frame: left and right in mode 2; else bottom and top, of which
// mode 3 makes alternate lines.
void stereo_split(StereoScene scene, const void *context, int32_t swap, double eye_offset,
                  double neg_depth, int32_t mode);

// Two screens, side by side or one on the other, with a whole picture each. While the scene is
// drawn, screen_width or screen_height is that of one screen.
void stereo_two_screen(StereoScene scene, const void *context, int32_t swap, int32_t vertical,
                       double eye_offset, double neg_depth);

// Both eyes over each other, each in the light of one colour, 0xRRGGBB.
void stereo_colour(StereoScene scene, const void *context, uint32_t first_colour,
                   uint32_t second_colour, double eye_offset, double neg_depth);

// Turns a frame with one eye's picture above the other's into alternate lines. The lines keep to
// the rows of the screen, wherever the window is; `parity` 1 exchanges them.
void stereo_interlace(int32_t parity);
