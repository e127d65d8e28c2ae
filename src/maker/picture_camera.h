#pragma once

#include "maker/options.h"
#include "world/world.h"

constexpr double picture_stereo_depth = 0.05; // as in a new config.txt

// The eye in the pictures of one turn.
struct PictureCamera {
  bool keeps_view; // that of the session
  double yaw, pitch;
  bool keeps_distance; // that of the session's zoom, from its place; otherwise:
  Vec3 pivot;          // the vertical axis of the turn passes through it
  Vec3 eye;            // from there to the right, upward and back, as seen in each picture
};

// Chooses the eye as the options say, which may set the zoom of the World. With `whole` all that
// the plot draws fits into each picture of the turn. Needs the fonts.
PictureCamera camera_plan(const Options &options, World *world);

// Sets view and camera of the World for a picture. `turn` is added to the yaw, radians.
void camera_place(const PictureCamera &plan, double turn, World *world);
