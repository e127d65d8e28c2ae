#pragma once

#include <cstdint>

// Colours are 0xRRGGBB. White is reserved for the user's node; anything else that would be white is
// drawn in colour_near_white.
constexpr uint32_t colour_white = 0xFFFFFF;
constexpr uint32_t colour_near_white = 0xFEFEFE;

constexpr uint8_t colour_red(uint32_t colour) {
  return static_cast<uint8_t>(colour >> 16);
}
constexpr uint8_t colour_green(uint32_t colour) {
  return static_cast<uint8_t>(colour >> 8);
}
constexpr uint8_t colour_blue(uint32_t colour) {
  return static_cast<uint8_t>(colour);
}

// Packs three channels, each clamped to 0..1 and converted to trunc(255 c + 0.5). NaN counts as 0.
uint32_t rgb_colour(double r, double g, double b);

// Adds a signed amount to each channel and clamps it to 0..255.
uint32_t colour_adjust(uint32_t colour, int32_t dr, int32_t dg, int32_t db);
