#pragma once

#include <cstdint>

// A scene drawn for two eyes. Each eye is a small change of the matrices around the scene callback;
// the modes differ in where the two pictures go. All functions expect the matrix mode GL_MODELVIEW
// and restore it, the projection and the modelview.

// Draws the scene once. `context` is the pointer given with the callback.
using StereoScene = void (*)(const void *context);

// The modes, by their numbers in the settings.
enum StereoMode : int32_t {
  stereo_off,
  stereo_top_bottom,
  stereo_side_by_side,
  stereo_interlaced,
  stereo_screens_across,
  stereo_screens_stacked,
  stereo_red_cyan,
  stereo_red_green,
  stereo_magenta_green
};
constexpr int32_t stereo_modes = 9;

// Draws the scene in a StereoMode; stereo_off draws once. Higher numbers draw nothing; numbers
// below 0 count as stereo_top_bottom. `eye_offset` is the distance between the eyes in world units.
// `neg_depth` is the negated shift between the eyes' projections. If `swap` is not 0, the eyes are
// swapped.
void stereo_render(StereoScene scene, const void *context, int32_t mode, int32_t swap,
                   double eye_offset, double neg_depth);

// Squeezes each eye into half the frame: left and right for stereo_side_by_side, otherwise bottom
// and top. For stereo_interlaced it then interlaces them.
void stereo_split(StereoScene scene, const void *context, int32_t swap, double eye_offset,
                  double neg_depth, int32_t mode);

// Draws a whole picture for each of two screens, side by side or one above the other. While the
// scene is drawn, screen_width and screen_height are those of one screen.
void stereo_two_screen(StereoScene scene, const void *context, int32_t swap, int32_t vertical,
                       double eye_offset, double neg_depth);

// Adds the pictures of both eyes, each tinted with one colour, 0xRRGGBB, or mixes them as
// stereo_set_mixer says.
void stereo_colour(StereoScene scene, const void *context, uint32_t first_colour,
                   uint32_t second_colour, double eye_offset, double neg_depth);

// A shader program that combines the pictures of both eyes.
struct StereoMixer {
  // Makes the program current. The first eye's picture is then in texture unit 0, with texture
  // coordinates, the second's in unit 1. False, with nothing changed, if it has no matrices for
  // these colours.
  bool (*begin)(uint32_t first_colour, uint32_t second_colour);
  void (*end)(); // returns to the fixed pipeline
};

// Sets what combines the pictures. Without a mixer, or where `begin` is false, the tinted pictures
// are added.
void stereo_set_mixer(const StereoMixer &mixer);

// Turns a frame that has one eye's picture above the other's into alternate lines. Which eye gets a
// line depends on its row on the screen, not in the window; `parity` 1 swaps them.
void stereo_interlace(int32_t parity);

// The row, from the bottom of such a frame, of which line y from the top of the result is made.
int32_t stereo_interlaced_row(int32_t y, int32_t height, int32_t parity);
