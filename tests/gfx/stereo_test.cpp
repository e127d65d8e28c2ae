#include "gfx/stereo.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/platform.h"
#include "gfx/window.h"
#include "picture.h"

namespace {

constexpr double depth_setting = 0.05;
constexpr double followed = 8.0;                      // distance of the point that is followed
constexpr double distances[] = {4.0, followed, 60.0}; // near, followed, far
constexpr double heights[] = {0.3, 0.0, -0.3};        // of their tangents
constexpr double halfway = 0.15;                      // between two heights

std::vector<std::vector<int32_t>> views; // of each drawing: the viewport, screen_width and _height
float lenses[16];                        // the projection then

// White points in eye space, one for each distance, 3 pixels wide, and a background that overlays
// would stand on.
void draw_points(const void *context) {
  const double *x = static_cast<const double *>(context);
  views.push_back({0, 0, 0, 0, screen_width, screen_height});
  glGetIntegerv(GL_VIEWPORT, views.back().data());
  glGetFloatv(GL_PROJECTION_MATRIX, lenses);
  glColor3f(1, 1, 1);
  glPointSize(3);
  glBegin(GL_POINTS);
  for (int i = 0; i < 3; i++)
    glVertex3d(*x * distances[i], heights[i] * distances[i], -distances[i]);
  glEnd();
}

// Where one eye's picture stands: pixels from the top left, in which light, and which rows of it.
struct Place {
  int left, top, width, height;
  uint32_t light = 0xFFFFFF;
  int first_row = 0, row_step = 1;
};

// A mode, the places of its eyes, and the scales of its lenses.
struct Mode {
  int32_t mode, swap;
  Place eyes[2];
  double p0 = 1, p5 = 4.0 / 3;
};

// The middle of what is lit within a band of tangents, as a part of the place's half width from its
// middle; 9 if nothing is.
double lit_at(const Picture &picture, const Place &place, double y, double p5) {
  double sum = 0;
  int count = 0;
  for (int row = place.first_row; row < place.height; row += place.row_step) {
    const double tangent = (1 - (row + 0.5) / place.height * 2) / p5;
    if (std::abs(tangent - y) > halfway) continue;
    for (int column = 0; column < place.width; column++) {
      const uint32_t colour = picture_colour(picture, place.left + column, place.top + row);
      if ((colour & place.light) != place.light) continue;
      sum += (column + 0.5) / place.width * 2 - 1;
      count++;
    }
  }
  return count == 0 ? 9 : sum / count;
}

// Both eyes at each distance, for points at the tangent 0.1, against the matrices worked out by
// hand.
void expect_parallax(const Mode &m, double depth) {
  const double x = 0.1;
  const double offset = followed * 0.75 * depth * 2 * picture_width / picture_height;
  picture_begin();
  stereo_render(draw_points, &x, m.mode, m.swap, offset, -depth);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  EXPECT_EQ(projection[8], 0);
  std::vector<int32_t> viewport(4);
  glGetIntegerv(GL_VIEWPORT, viewport.data());
  EXPECT_EQ(viewport, (std::vector<int32_t>{0, 0, screen_width, screen_height}));
  EXPECT_TRUE(screen_width == picture_width && screen_height == picture_height);
  const Picture picture = picture_take();
  for (int eye = 0; eye < 2; eye++)
    for (int i = 0; i < 3; i++) {
      const double side = (eye - 0.5) * (m.swap != 0 && m.mode <= 5 ? -1 : 1);
      const double expected = m.p0 * (x + offset * side / distances[i]) - 2 * depth * side;
      const double seen = lit_at(picture, m.eyes[eye], heights[i], m.p5);
      EXPECT_NEAR(seen, expected, 1.5 / m.eyes[eye].width)
          << "mode " << m.mode << " swap " << m.swap << " depth " << depth << " eye " << eye
          << " distance " << distances[i];
      // What is followed shows without a difference.
      const bool together = distances[i] == followed && m.mode <= 3;
      EXPECT_TRUE(!together || std::abs(seen - x) < 2.5 / m.eyes[eye].width);
    }
}

TEST(Stereo, EyesDifferByTheDistanceAndByTheDepth) {
  constexpr int w = picture_width;
  constexpr int h = picture_height;
  picture_begin();
  const int parity = platform_window_rect().top & 1;
  const Place bottom = {0, h / 2, w, h / 2}, top = {0, 0, w, h / 2};
  const Place left = {0, 0, w / 2, h}, right = {w / 2, 0, w / 2, h};
  // Row y of the window is of the eye ((parity + y) & 1) ^ 1.
  const Place one = {0, 0, w, h, 0xFFFFFF, 1 - parity, 2},
              other = {0, 0, w, h, 0xFFFFFF, parity, 2};
  const Place red = {0, 0, w, h, 0xFF0000}, cyan = {0, 0, w, h, 0x00FFFF};
  const Place green = {0, 0, w, h, 0x00FF00}, violet = {0, 0, w, h, 0xFF00FF};
  // Of two screens narrower than 4:3 the width tells, of wider ones the height.
  const double t = std::tan(std::floor(gfx_fov_43()) * 3.14159265358979 / 360);
  const double narrow = 1 / (t * 480 / 320), wide = 240.0 / (640 * 0.75 * t);
  const Mode modes[] = {{1, 0, {bottom, top}},
                        {-7, 1, {bottom, top}},
                        {2, 1, {left, right}},
                        {3, 0, {one, other}},
                        {3, 1, {one, other}},
                        {6, 0, {red, cyan}},
                        {7, 0, {red, green}},
                        {8, 1, {green, violet}},
                        {4, 0, {left, right}, 1 / t, narrow},
                        {5, 1, {bottom, top}, wide, 1 / (0.75 * t)}};
  for (const double depth : {depth_setting, 0.0, -0.02})
    for (const Mode &mode : modes)
      expect_parallax(mode, depth);
}

TEST(Stereo, OddSizesLoseTheLastRowOrColumnAndAnglesAreWholeDegrees) {
  picture_begin();
  const double x = 0;
  const auto seen = [&](int32_t width, int32_t height, int32_t mode) {
    gfx_resize(width, height);
    views.clear();
    stereo_render(draw_points, &x, mode, 0, 0, 0);
    return views;
  };
  using Views = std::vector<std::vector<int32_t>>;
  EXPECT_EQ(seen(641, 479, 1), (Views{{0, 0, 641, 239, 641, 479}, {0, 239, 641, 239, 641, 479}}));
  EXPECT_EQ(seen(641, 479, 2), (Views{{0, 0, 320, 479, 641, 479}, {320, 0, 320, 479, 641, 479}}));
  EXPECT_EQ(seen(641, 479, 4), (Views{{0, 0, 320, 479, 320, 479}, {320, 0, 320, 479, 320, 479}}));
  EXPECT_EQ(seen(641, 479, 5), (Views{{0, 0, 641, 239, 641, 239}, {0, 239, 641, 239, 641, 239}}));
  EXPECT_EQ(seen(641, 479, 6), (Views{{0, 0, 641, 479, 641, 479}, {0, 0, 641, 479, 641, 479}}));
  seen(1366, 768, 4); // a little less than 90 degrees
  const double t = std::tan(89 * 3.14159265358979 / 360);
  EXPECT_NEAR(static_cast<double>(lenses[0]), 1 / t, 1e-6);
  EXPECT_NEAR(static_cast<double>(lenses[5]), 683 / (t * 768), 1e-6);
  EXPECT_TRUE(seen(1, 500, 3).empty()) << "no room for two eyes";
}

TEST(Stereo, TexturesAreMadeAnewForOtherSizesOnly) {
  const double x = 0;
  const auto render = [&x](int32_t width, int32_t height) {
    gfx_resize(width, height);
    for (const int32_t mode : {3, 8})
      stereo_render(draw_points, &x, mode, 0, 0, 0);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    return std::vector<uint32_t>{interlace_tex_width, interlace_tex_height, stereo_eye_tex_width,
                                 stereo_eye_tex_height};
  };
  picture_begin();
  EXPECT_EQ(render(640, 480), (std::vector<uint32_t>{1024, 512, 1024, 512}));
  const uint32_t names[] = {interlace_texture, stereo_eye_textures[1]};
  render(600, 479); // the same powers of two
  EXPECT_TRUE(interlace_texture == names[0] && stereo_eye_textures[1] == names[1]);
  EXPECT_EQ(render(600, 200), (std::vector<uint32_t>{1024, 256, 1024, 256}));
  EXPECT_EQ(render(300, 200), (std::vector<uint32_t>{512, 256, 512, 256}));
  const uint32_t spare[] = {interlace_texture, stereo_eye_textures[0], stereo_eye_textures[1]};
  for (const uint32_t old : names) // a name may serve again
    EXPECT_TRUE(std::ranges::count(spare, old) > 0 || glIsTexture(old) == GL_FALSE);
}

} // namespace
