// OpenGL through the real window system: SDL's offscreen driver on Linux, the desktop on Windows.

#include <cmath>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/gl_procs.h"
#include "gfx/gl_util.h"
#include "gfx/offscreen.h"
#include "gfx/platform.h"
#include "gfx/stereo.h"
#include "gfx/texture.h"
#include "gfx/window.h"
#include "picture.h"

namespace {

constexpr int width = 200, height = 152;
using Bytes = std::vector<uint8_t>;

struct Drawing : testing::Test {
  void SetUp() override {
    picture_begin();
    gfx_resize(width, height);
    gfx_swap(0x336699);
  }
  void TearDown() override {
    gfx_swap(0);
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
  }
};

// With the default projection, which spans 1 to each side at a distance of 1.
TEST_F(Drawing, PointsAreProjectedAndPixelsMeasured) {
  glTranslated(0.3, -0.2, -4);
  glRotated(30, 0, 0, 1);
  glScaled(1.5, 1.1, 1);
  double projection[16], modelview[16], x = 0, y = 0;
  glGetDoublev(GL_PROJECTION_MATRIX, projection);
  glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
  const int32_t viewport[4] = {10, 20, width, height};
  gfx_project(1.2, 0.7, 0.9, &x, &y, projection, modelview, viewport);
  const double c = std::cos(std::numbers::pi / 6);
  EXPECT_NEAR(x, 10 + 100 * (1 + (1.8 * c - 0.77 * 0.5 + 0.3) / 3.1), 1e-3);
  EXPECT_NEAR(y, 20 + 76 - 100 * (1.8 * 0.5 + 0.77 * c - 0.2) / 3.1, 1e-3);
  EXPECT_NEAR(gfx_units_per_pixel(), 1 / (100 * std::sqrt(1.5 * 1.1)), 1e-5);
}

Bytes level_pixels(int level, uint32_t format, size_t size) {
  Bytes pixels(size);
  glGetTexImage(GL_TEXTURE_2D, level, format, GL_UNSIGNED_BYTE, pixels.data());
  return pixels;
}

// Two by two pixels with alpha and their mean in the next level, made by the driver or without it.
TEST_F(Drawing, CaptureCopiesARectangleWithAlphaAndMipmaps) {
  int32_t answer = -1;
  EXPECT_FALSE(gl_has_extension(&answer, "GL_ARB_framebuffer_objec"));
  for (const bool by_driver : {true, false}) {
    const auto generate = gl.generate_mipmap;
    if (!by_driver) gl.generate_mipmap = nullptr;
    Offscreen target;
    ASSERT_TRUE(offscreen_begin(&target, 31, 17));
    glClearColor(0.2F, 0.4F, 0.6F, 0.8F);
    glClear(GL_COLOR_BUFFER_BIT);
    gfx_push_2d();
    glColor3ub(255, 0, 128);
    glRecti(5, 3, 6, 4);
    gfx_pop_2d();
    const uint32_t name = texture_capture(4, 3, 2, 2, 1);
    EXPECT_EQ(level_pixels(0, GL_RGBA, 16), (Bytes{51, 102, 153, 204, 51, 102, 153, 204, //
                                                   51, 102, 153, 204, 255, 0, 128, 255}));
    const Bytes mean = level_pixels(1, GL_RGBA, 4);
    for (size_t i = 0; i < 4; i++)
      EXPECT_NEAR(mean[i], (Bytes{102, 77, 147, 217})[i], 1) << "by driver " << by_driver;
    glDeleteTextures(1, &name);
    offscreen_end(&target);
    gl.generate_mipmap = generate;
  }
}

// Each texel is the rounded mean of four in the larger level. An odd column is dropped, a single
// one counts twice. Rows are padded to 4 bytes.
TEST_F(Drawing, UploadMakesBoxFilteredLevels) {
  Bytes pixels(16 * 4);
  for (size_t i = 0; i < pixels.size(); i++)
    pixels[i] = static_cast<uint8_t>(i % 16 / 3 * 10 + i / 16 * 41 + i % 16 % 3);
  texture_upload(GL_TEXTURE_2D, 3, 5, 4, pixels.data());
  EXPECT_EQ(level_pixels(1, GL_RGB, 16),
            (Bytes{26, 27, 28, 46, 47, 48, 0, 0, 108, 109, 110, 128, 129, 130, 0, 0}));
  EXPECT_EQ(level_pixels(2, GL_RGB, 4), (Bytes{77, 78, 79, 0}));
}

void draw_point(const void *) {
  glColor3f(1, 1, 1);
  glBegin(GL_POINTS);
  glVertex3d(0, 1.2, -4);
  glEnd();
}

// The eyes are 0.8 apart and their projections shifted by 0.03 of the width. The approved pictures
// cover all modes.
TEST_F(Drawing, ANearPointIsFurtherRightInTheEvenLines) {
  picture_begin();
  smooth_lines_on(0, 5); // leaves points of one pixel
  smooth_lines_off();
  stereo_render(draw_point, nullptr, stereo_interlaced, 0, 0.8, -0.03);
  const Picture picture = picture_take();
  std::vector<int> columns[2]; // of the white pixels in even and in odd lines of the screen
  for (int y = 0; y < picture_height; y++)
    for (int x = 0; x < picture_width; x++)
      if (picture_colour(picture, x, y) == 0xFFFFFF)
        columns[(y + platform_window_rect().top) & 1].push_back(x);
  ASSERT_EQ(columns[0].size(), 1U);
  EXPECT_NEAR(columns[0][0] - columns[1].at(0), picture_width * 0.07, 1);
}

} // namespace
