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

std::vector<int32_t> sizes_seen; // screen_width and screen_height while a scene is drawn
std::vector<std::vector<int32_t>> viewports; // of each drawing
float lenses[16];                            // the projection then

// White points in eye space, one for each distance, 3 pixels wide, and a background that overlays
// would stand on.
void draw_points(const void *context) {
  const double *x = static_cast<const double *>(context);
  sizes_seen = {screen_width, screen_height};
  viewports.emplace_back(4);
  glGetIntegerv(GL_VIEWPORT, viewports.back().data());
  glGetFloatv(GL_PROJECTION_MATRIX, lenses);
  glColor3f(1, 1, 1);
  glPointSize(3);
  glBegin(GL_POINTS);
  for (int i = 0; i < 3; i++)
    glVertex3d(*x * distances[i], heights[i] * distances[i], -distances[i]);
  glEnd();
}

double eye_offset() {
  return followed * 0.75 * depth_setting * 2 * picture_width / picture_height;
}

// A mode run over points at the tangent x.
Picture run_mode(int32_t mode, int32_t swap, double depth, double x = 0.1) {
  picture_begin();
  const double offset = depth / depth_setting * eye_offset();
  stereo_render(draw_points, &x, mode, swap, offset, -depth);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  EXPECT_EQ(projection[8], 0);
  std::vector<int32_t> viewport(4);
  glGetIntegerv(GL_VIEWPORT, viewport.data());
  EXPECT_EQ(viewport, (std::vector<int32_t>{0, 0, screen_width, screen_height}));
  EXPECT_TRUE(screen_width == picture_width && screen_height == picture_height);
  return picture_take();
}

// Where one eye's picture stands: pixels from the top left, which rows of it, and in which light.
struct Place {
  int left, top, width, height;
  int first_row, row_step;
  uint32_t light;
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

// Both eyes of a mode at each distance, against the matrices worked out by hand.
void expect_parallax(int32_t mode, int32_t swap, double depth, const Place (&places)[2], double p0,
                     double p5) {
  const double x = 0.1;
  const Picture picture = run_mode(mode, swap, depth, x);
  const double offset = depth / depth_setting * eye_offset();
  for (int eye = 0; eye < 2; eye++)
    for (int i = 0; i < 3; i++) {
      const double side = (eye - 0.5) * (swap != 0 && mode <= 5 ? -1 : 1);
      const double expected = p0 * (x + offset * side / distances[i]) - 2 * depth * side;
      const double seen = lit_at(picture, places[eye], heights[i], p5);
      EXPECT_NEAR(seen, expected, 1.5 / places[eye].width)
          << "mode " << mode << " swap " << swap << " depth " << depth << " eye " << eye
          << " distance " << distances[i];
      // What is followed shows without a difference.
      const bool together = distances[i] == followed && mode <= 3;
      EXPECT_TRUE(!together || std::abs(seen - x) < 2.5 / places[eye].width);
    }
}

TEST(Stereo, EyesDifferByTheDistanceAndByTheDepth) {
  constexpr int w = picture_width;
  constexpr int h = picture_height;
  picture_begin();
  const int parity = platform_window_rect().top & 1;
  constexpr uint32_t white = 0xFFFFFF;
  const Place split[2] = {{0, h / 2, w, h / 2, 0, 1, white}, {0, 0, w, h / 2, 0, 1, white}};
  const Place sides[2] = {{0, 0, w / 2, h, 0, 1, white}, {w / 2, 0, w / 2, h, 0, 1, white}};
  // Row y of the window is of the eye ((parity + y) & 1) ^ 1.
  const Place lines[2] = {{0, 0, w, h, 1 - parity, 2, white}, {0, 0, w, h, parity, 2, white}};
  const Place red_cyan[2] = {{0, 0, w, h, 0, 1, 0xFF0000}, {0, 0, w, h, 0, 1, 0x00FFFF}};
  const Place red_green[2] = {{0, 0, w, h, 0, 1, 0xFF0000}, {0, 0, w, h, 0, 1, 0x00FF00}};
  const Place violet_green[2] = {{0, 0, w, h, 0, 1, 0xFF00FF}, {0, 0, w, h, 0, 1, 0x00FF00}};
  const Place cyan_red[2] = {red_cyan[1], red_cyan[0]};
  const Place green_violet[2] = {violet_green[1], violet_green[0]};
  const struct {
    int32_t mode, swap;
    const Place (&places)[2];
  } cases[] = {{1, 0, split},       {1, 1, split},    {-7, 0, split},    {-7, 1, split},
               {2, 0, sides},       {2, 1, sides},    {3, 0, lines},     {3, 1, lines},
               {6, 0, red_cyan},    {6, 1, cyan_red}, {7, 0, red_green}, {8, 0, violet_green},
               {8, 1, green_violet}};
  for (const double depth : {depth_setting, 0.0, -0.02})
    for (const auto &c : cases)
      expect_parallax(c.mode, c.swap, depth, c.places, 1, 4.0 / 3);
}

TEST(Stereo, TwoScreensShowWholePicturesOfTheirShape) {
  constexpr int w = picture_width;
  constexpr int h = picture_height;
  picture_begin();
  const double t = std::tan(std::floor(gfx_fov_43()) * 3.14159265358979 / 360);
  const Place sides[2] = {{0, 0, w / 2, h, 0, 1, 0xFFFFFF}, {w / 2, 0, w / 2, h, 0, 1, 0xFFFFFF}};
  const Place stacked[2] = {{0, h / 2, w, h / 2, 0, 1, 0xFFFFFF}, {0, 0, w, h / 2, 0, 1, 0xFFFFFF}};
  for (const int swap : {0, 1}) {
    // Narrower than 4:3 the width tells, wider the height.
    expect_parallax(4, swap, depth_setting, sides, 1 / t, 1 / (t * 480 / 320));
    EXPECT_EQ(sizes_seen, (std::vector<int32_t>{w / 2, h}));
    expect_parallax(5, swap, depth_setting, stacked, 240.0 / (640 * 0.75 * t), 1 / (0.75 * t));
    EXPECT_EQ(sizes_seen, (std::vector<int32_t>{w, h / 2}));
  }
}

TEST(Stereo, OddSizesLoseTheLastRowOrColumnAndAnglesAreWholeDegrees) {
  picture_begin();
  const double x = 0;
  const auto seen = [&](int32_t width, int32_t height, int32_t mode) {
    gfx_resize(width, height);
    viewports.clear();
    stereo_render(draw_points, &x, mode, 0, 0, 0);
    return viewports;
  };
  using Viewports = std::vector<std::vector<int32_t>>;
  EXPECT_EQ(seen(641, 479, 1), (Viewports{{0, 0, 641, 239}, {0, 239, 641, 239}}));
  EXPECT_EQ(seen(641, 479, 2), (Viewports{{0, 0, 320, 479}, {320, 0, 320, 479}}));
  EXPECT_EQ(seen(641, 479, 4), (Viewports{{0, 0, 320, 479}, {320, 0, 320, 479}}));
  EXPECT_EQ(seen(641, 479, 5), (Viewports{{0, 0, 641, 239}, {0, 239, 641, 239}}));
  EXPECT_EQ(seen(641, 479, 6), (Viewports{{0, 0, 641, 479}, {0, 0, 641, 479}}));
  seen(1366, 768, 4); // a little less than 90 degrees
  const double t = std::tan(89 * 3.14159265358979 / 360);
  EXPECT_NEAR(static_cast<double>(lenses[0]), 1 / t, 1e-6);
  EXPECT_NEAR(static_cast<double>(lenses[5]), 683 / (t * 768), 1e-6);
  EXPECT_TRUE(seen(1, 500, 3).empty()) << "no room for two eyes";
}

TEST(Stereo, LinesFollowTheParity) {
  picture_begin();
  const int own = platform_window_rect().top & 1;
  for (const int parity : {0, 1}) {
    picture_begin();
    glEnable(GL_SCISSOR_TEST); // the lower half red, the upper one blue
    glClearColor(1, 0, 0, 0);
    glScissor(0, 0, picture_width, picture_height / 2);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0, 0, 1, 0);
    glScissor(0, picture_height / 2, picture_width, picture_height / 2);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);
    glClearColor(0, 0, 0, 0);
    stereo_interlace(parity);
    const Picture picture = picture_take();
    for (int y = 0; y < picture_height; y++) {
      const uint32_t expected = ((parity ^ own) + y) % 2 == 1 ? 0xFF0000 : 0x0000FF;
      ASSERT_EQ(picture_colour(picture, 0, y), expected) << y;
      ASSERT_EQ(picture_colour(picture, picture_width - 1, y), expected) << y;
    }
  }
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
  EXPECT_EQ(render(300, 200), (std::vector<uint32_t>{512, 256, 512, 256}));
  const uint32_t spare[] = {interlace_texture, stereo_eye_textures[0], stereo_eye_textures[1]};
  for (const uint32_t old : names) // a name may serve again
    EXPECT_TRUE(std::ranges::count(spare, old) > 0 || glIsTexture(old) == GL_FALSE);
}

} // namespace
