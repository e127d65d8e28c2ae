#include "text/palette.h"

namespace {

constexpr int bright_bit = 8;
constexpr int dark_grey = 8; // would be a second black by its bits
constexpr int first_grey = 16;
constexpr int first_cube = 40;
constexpr float grey_step = 0.04347826F; // a twenty-third
constexpr float cube_step = 0.2F;

struct Components {
  float red, green, blue;
};

Components primary(int index) {
  const float level = (index & bright_bit) != 0 ? 1.0F : 0.5F;
  const auto selected = [&](int bit) { return (index & bit) != 0 ? level : 0.0F; };
  if (index == dark_grey) return {0.25F, 0.25F, 0.25F};
  return {selected(4), selected(2), selected(1)};
}

Components grey(int index) {
  const float level = static_cast<float>(index - first_grey) * grey_step;
  return {level, level, level};
}

Components of_cube(int index) {
  const int k = index - first_cube;
  const auto level = [](int sixth) { return static_cast<float>(sixth) * cube_step; };
  return {level(k % 6), level(k / 6 % 6), level(k / 36)};
}

} // namespace

void palette_build(float *red, float *green, float *blue) {
  for (int index = 0; index < palette_size; index++) {
    const Components c = index < first_grey   ? primary(index)
                         : index < first_cube ? grey(index)
                                              : of_cube(index);
    red[index] = c.red;
    green[index] = c.green;
    blue[index] = c.blue;
  }
}
