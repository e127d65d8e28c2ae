#include "gfx/stereo.h"

#include <array>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "gfx/platform.h"
#include "picture.h"

// The approved pictures show what each mode looks like.

namespace {

constexpr int w = picture_width, h = picture_height;

// A near point above a far one.
void draw_points(const void *) {
  glColor3f(1, 1, 1);
  glPointSize(3);
  glBegin(GL_POINTS);
  glVertex3d(0, 1.2, -4);
  glVertex3d(0, -18, -60);
  glEnd();
  glColor3f(0.3F, 0.8F, 0.5F); // must not colour what follows
}

// One eye's part of the frame, in pixels from the top left, with its rows and its colour.
struct Eye {
  int left, top, width, height;
  int first_row = 0, row_step = 1;
  uint32_t colour = 0xFFFFFF;
};

// The mean column, as a part of the width, of what is lit in the upper half and in the lower one.
// Where the pictures overlap, the colour is `both`.
std::array<double, 2> places(const Picture &picture, const Eye &eye, uint32_t both) {
  std::array<double, 2> sums = {}, counts = {};
  for (int row = eye.first_row; row < eye.height; row += eye.row_step)
    for (int column = 0; column < eye.width; column++) {
      const uint32_t seen = picture_colour(picture, eye.left + column, eye.top + row);
      if (seen != eye.colour && seen != both) continue;
      sums[2 * row / eye.height] += (column + 0.5) / eye.width;
      counts[2 * row / eye.height]++;
    }
  return {sums[0] / counts[0], sums[1] / counts[1]};
}

// The eyes are 0.8 apart and their axes are turned by 0.03 of the width. The swap exchanges the
// colours in some modes, else the eyes.
TEST(Stereo, TheFirstEyeSeesNearThingsFurtherToTheLeft) {
  picture_begin();
  const int parity = platform_window_rect().top & 1;
  const Eye bottom = {0, h / 2, w, h / 2}, top = {0, 0, w, h / 2};
  const Eye left = {0, 0, w / 2, h}, right = {w / 2, 0, w / 2, h};
  const Eye odd = {0, 0, w, h, 1 - parity, 2}, even = {0, 0, w, h, parity, 2};
  const Eye red = {0, 0, w, h, 0, 1, 0xFF0000}, cyan = {0, 0, w, h, 0, 1, 0x00FFFF};
  const Eye green = {0, 0, w, h, 0, 1, 0x00FF00}, violet = {0, 0, w, h, 0, 1, 0xFF00FF};
  const struct {
    int32_t mode, swap;
    Eye eyes[2];
    double scale = 1; // of the projection, across
  } modes[] = {{1, 0, {bottom, top}},      {-7, 1, {top, bottom}}, {2, 1, {right, left}},
               {3, 0, {odd, even}},        {3, 1, {even, odd}},    {4, 0, {left, right}},
               {5, 1, {top, bottom}, 0.5}, {6, 0, {red, cyan}},    {7, 0, {red, green}},
               {8, 0, {violet, green}},    {8, 1, {green, violet}}};
  for (const auto &[mode, swap, eyes, scale] : modes) {
    SCOPED_TRACE(testing::Message() << "mode " << mode << " swap " << swap);
    picture_begin();
    stereo_render(draw_points, nullptr, mode, swap, 0.8, -0.03);
    const Picture picture = picture_take();
    const uint32_t both = eyes[0].colour | eyes[1].colour;
    const auto first = places(picture, eyes[0], both), second = places(picture, eyes[1], both);
    EXPECT_NEAR(second[0] - first[0], scale * 0.8 / 4 / 2 - 0.03, 0.003);
    EXPECT_NEAR(second[1] - first[1], scale * 0.8 / 60 / 2 - 0.03, 0.003);
  }
}

} // namespace
