#include "support/colour.h"

#include <algorithm>
#include <cmath>

namespace {

uint32_t pack(uint32_t red, uint32_t green, uint32_t blue) {
  return red << 16 | green << 8 | blue;
}

uint32_t channel(double c) {
  // fmax first: it also turns a NaN into 0.
  return static_cast<uint32_t>(255.0 * std::fmin(std::fmax(c, 0.0), 1.0) + 0.5);
}

uint32_t adjusted(uint8_t c, int32_t amount) {
  return static_cast<uint32_t>(std::clamp<int64_t>(int64_t{c} + amount, 0, 255));
}

} // namespace

uint32_t rgb_colour(double r, double g, double b) {
  return pack(channel(r), channel(g), channel(b));
}

uint32_t colour_adjust(uint32_t colour, int32_t dr, int32_t dg, int32_t db) {
  return pack(adjusted(colour_red(colour), dr), adjusted(colour_green(colour), dg),
              adjusted(colour_blue(colour), db));
}
