#include "gfx/stereo.h"

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "gfx/platform.h"
#include "picture.h"

namespace {

void draw_point(const void *) {
  glColor3f(1, 1, 1);
  glPointSize(5);
  glBegin(GL_POINTS);
  glVertex3d(0, 1.2, -4);
  glEnd();
}

// One eye's rows, from the top, and its colour.
struct Eye {
  int first_row, row_step;
  uint32_t colour = 0xFFFFFF;
};

// The mean column of what one eye sees, in pixels.
double column(const Picture &picture, const Eye &eye) {
  double sum = 0, count = 0;
  for (int row = eye.first_row; row < picture_height; row += eye.row_step)
    for (int x = 0; x < picture_width; x++)
      if (picture_colour(picture, x, row) == eye.colour) {
        sum += x;
        count++;
      }
  return sum / count;
}

// The eyes are 0.8 apart and their axes are turned by 0.03 of the width. The approved pictures show
// all modes.
TEST(Stereo, TheFirstEyeSeesANearPointFurtherToTheLeft) {
  picture_begin();
  const int parity = platform_window_rect().top & 1;
  const std::tuple<int, Eye, Eye> modes[] = {{3, {1 - parity, 2}, {parity, 2}},
                                             {6, {0, 1, 0xFF0000}, {0, 1, 0x00FFFF}}};
  for (const auto &[mode, first, second] : modes) {
    picture_begin();
    stereo_render(draw_point, nullptr, mode, 0, 0.8, -0.03);
    const Picture picture = picture_take();
    EXPECT_NEAR(column(picture, second) - column(picture, first), 640 * (0.1 - 0.03), 1) << mode;
  }
}

} // namespace
