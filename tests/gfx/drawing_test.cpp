// OpenGL through the real window system: on Linux its driver without a display, on Windows the
// desktop.

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/offscreen.h"
#include "gfx/texture.h"
#include "gfx/window.h"

namespace {

constexpr int width = 200;
constexpr int height = 152;
using Bytes = std::vector<uint8_t>;

struct Drawing : testing::Test {
  void SetUp() override {
    windowed = 1;
    projection_is_2d = 0;
    if (!gfx_context_alive()) {
      ASSERT_EQ(gfx_open(width, height, "test"), 1);
    }
    gfx_resize(width, height);
    gfx_swap(0x336699);
  }
  void TearDown() override { EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR}); }
};

// Under the default projection, whose frame shows 1 to each side at a distance of 1.
TEST_F(Drawing, PointsAreProjectedAndPixelsMeasured) {
  glTranslated(0.3, -0.2, -4);
  glRotated(30, 0, 0, 1);
  glScaled(1.5, 1.1, 1);
  double projection[16], modelview[16];
  glGetDoublev(GL_PROJECTION_MATRIX, projection);
  glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
  const int32_t viewport[4] = {10, 20, width, height};
  double seen_x = 0, seen_y = 0;
  gfx_project(1.2, 0.7, 0.9, &seen_x, &seen_y, projection, modelview, viewport);
  const double c = std::cos(std::numbers::pi / 6), x = 1.5 * 1.2, y = 1.1 * 0.7;
  EXPECT_NEAR(seen_x, 10 + width / 2.0 * (1 + (x * c - y * 0.5 + 0.3) / 3.1), 1e-3);
  EXPECT_NEAR(seen_y, 20 + height / 2.0 - width / 2.0 * (x * 0.5 + y * c - 0.2) / 3.1, 1e-3);
  EXPECT_NEAR(gfx_units_per_pixel(), 1 / (width / 2.0 * std::sqrt(1.5 * 1.1)), 1e-5);
}

Bytes level_pixels(int level, uint32_t format, size_t size) {
  Bytes pixels(size);
  glGetTexImage(GL_TEXTURE_2D, level, format, GL_UNSIGNED_BYTE, pixels.data());
  return pixels;
}

// Two pixels by two of a picture with alpha, and their mean in the next level, whoever makes it.
TEST_F(Drawing, CaptureTakesAPartOfThePictureWithItsAlpha) {
  const Bytes below = {51, 102, 153, 204}, corner = {255, 0, 128, 255}; // red, green, blue, alpha
  for (const int32_t by_driver : {1, 0}) {
    has_generate_mipmap = by_driver;
    ASSERT_TRUE(offscreen_begin(31, 17));
    glClearColor(0.2F, 0.4F, 0.6F, 0.8F);
    glClear(GL_COLOR_BUFFER_BIT);
    gfx_push_2d();
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    glColor3ub(255, 0, 128);
    glRecti(5, 3, 6, 4);
    gfx_pop_2d();
    const uint32_t name = texture_capture(4, 3, 2, 2, 1);
    const Bytes pixels = level_pixels(0, GL_RGBA, 16), mean = level_pixels(1, GL_RGBA, 4);
    EXPECT_EQ(Bytes(pixels.begin(), pixels.begin() + 4), below); // the bottom row is the first
    EXPECT_EQ(Bytes(pixels.end() - 4, pixels.end()), corner);
    for (size_t i = 0; i < 4; i++)
      EXPECT_NEAR(mean[i], (3 * below[i] + corner[i]) / 4.0, 1) << "by driver " << by_driver;
    glDeleteTextures(1, &name);
    offscreen_end();
  }
  has_generate_mipmap = -1;
  EXPECT_EQ(std::pair(screen_width, screen_height), std::pair(width, height));
  glClear(GL_COLOR_BUFFER_BIT); // in the window and with its clear colour again
  Bytes pixel(4);
  glReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
  EXPECT_EQ(pixel[1], 0x66);
}

// Each texel is the rounded mean of four of the level above. An odd column is dropped, a single one
// counts twice. Rows are padded to 4 bytes.
TEST_F(Drawing, UploadMakesBoxFilteredLevels) {
  Bytes pixels(16 * 4);
  for (size_t y = 0; y < 4; y++)
    for (size_t i = 0; i < 15; i++)
      pixels[16 * y + i] = static_cast<uint8_t>(i / 3 * 10 + y * 41 + i % 3);
  texture_upload(GL_TEXTURE_2D, 3, 5, 4, pixels.data());
  EXPECT_EQ(level_pixels(1, GL_RGB, 16),
            (Bytes{26, 27, 28, 46, 47, 48, 0, 0, 108, 109, 110, 128, 129, 130, 0, 0}));
  EXPECT_EQ(level_pixels(2, GL_RGB, 4), (Bytes{77, 78, 79, 0}));
  texture_upload(GL_TEXTURE_2D, 1, 1, 3, pixels.data());
  EXPECT_EQ(level_pixels(1, GL_LUMINANCE, 1)[0], pixels[0]);
}

TEST_F(Drawing, ExtensionsAreFoundByTheirWholeNamesOnce) {
  const std::string all = reinterpret_cast<const char *>(glGetString(GL_EXTENSIONS));
  const std::string first = all.substr(0, all.find(' '));
  int32_t answer = -1;
  EXPECT_TRUE(gl_has_extension(&answer, first.c_str()));
  EXPECT_TRUE(gl_has_extension(&answer, "not searched again"));
  answer = -1;
  EXPECT_FALSE(gl_has_extension(&answer, first.substr(0, first.size() - 1).c_str()));
}

} // namespace
