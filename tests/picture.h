#pragma once

#include <cstdint>
#include <vector>

// Pictures of the real drawing code in a context without a display. The size is always 640 by 480,
// so the default perspective shows 20 pixels per unit at a distance of 16.

constexpr int picture_width = 640;
constexpr int picture_height = 480;

struct Picture {
  std::vector<uint8_t> bgra; // top row first
  std::vector<float> depth;  // window depth, top row first
};

// Opens the window and the context on the first call. Each call clears the frame and loads the
// default projection and an identity modelview.
void picture_begin();

// What has been drawn so far.
Picture picture_take();

// The 0xRRGGBB colour and the window depth at a pixel counted from the top left.
uint32_t picture_colour(const Picture &picture, int x, int y);
float picture_depth(const Picture &picture, int x, int y);

// Largest difference of a channel between two colours.
int colour_distance(uint32_t a, uint32_t b);
