#include "render/gl/age_colour.h"

#include <algorithm>
#include <cmath>

namespace {

struct Rgb {
  int32_t r, g, b;
};

// What is added to the grey at t decades. i increases from 0 to 35 within a decade.
Rgb ramp(double t, int32_t i) {
  const int32_t h = i / 2;
  if (t <= 1) return {36, 36, 36};
  if (t <= 2) return {36, 36 - i, 36};
  if (t <= 3) return {36, 0, 36 - i};
  if (t <= 4) return {36, i, 0};
  if (t <= 5) return {36 - i, 36, 0};
  if (t <= 6) return {0, 36, i};
  if (t <= 7) return {0, 36 - i, 36};
  if (t <= 8) return {h, h, 36 - h};
  if (t <= 9) return {18 - h, 18 - h, 18 - h};
  return {0, 0, 0};
}

// A grey at t decades.
uint32_t light_grey(double t) {
  return 0x010101 * static_cast<uint32_t>(17.0 + 20.0 * std::clamp(7.0 - t, 0.0, 6.0));
}

} // namespace

bool age_colour_light;

uint32_t agecolour_rgb(double age) {
  const double t = std::log10(std::max(1.0, age * 100.0));
  if (age_colour_light) return light_grey(t);
  const auto i = static_cast<int32_t>(std::fmod(t, 1.0) * 36.0);
  const auto grey = static_cast<int32_t>(std::max(6.638888888888889 - t, 0.0) * 16.0 + 17.0);
  const Rgb add = ramp(t, i);
  return static_cast<uint32_t>((grey + add.r) << 16 | (grey + add.g) << 8 | (grey + add.b));
}
