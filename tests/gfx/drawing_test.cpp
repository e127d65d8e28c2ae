#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/input.h"
#include "gfx/platform.h"
#include "gfx/texture.h"
#include "gfx/window.h"

// The real window system: on Linux its driver without a display, on Windows the desktop.

namespace {

constexpr int width = 200;
constexpr int height = 152;
using Bytes = std::vector<uint8_t>;

class Drawing : public testing::Test {
protected:
  void SetUp() override {
    windowed = 1;
    projection_is_2d = 0;
    if (!gfx_context_alive()) {
      ASSERT_EQ(gfx_open(width, height, "test"), 1);
    }
    gfx_resize(width, height);
    gfx_swap(0);
  }
  void TearDown() override {
    if (gfx_context_alive()) {
      EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
    }
  }
};

// 0xRRGGBB at a pixel counted from the top left.
uint32_t pixel(int x, int y) {
  std::array<uint8_t, 4> rgba = {};
  glReadPixels(x, height - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
  return static_cast<uint32_t>(rgba[0] << 16 | rgba[1] << 8 | rgba[2]);
}

void fill(int x, int y, int w, int h, uint32_t colour) {
  glColor3ub(uint8_t(colour >> 16), uint8_t(colour >> 8), uint8_t(colour));
  glRecti(x, y, x + w, y + h);
}

// Pixels are those of the window, wherever the viewport is; the swap clears to its colour.
TEST_F(Drawing, PixelSpaceCountsFromTheTopLeft) {
  gfx_swap(0x336699);
  glViewport(40, 16, 90, 100);
  gfx_push_2d();
  fill(110, 50, 3, 2, 0x00FF00);
  gfx_pop_2d();
  for (int y = 48; y < 54; y++)
    for (int x = 108; x < 115; x++) {
      bool inside = x >= 110 && x < 113 && y >= 50 && y < 52;
      EXPECT_EQ(pixel(x, y), inside ? 0x00FF00u : 0x336699u) << x << " " << y;
    }
}

// Under the default projection, whose frame shows 1 to each side at a distance of 1.
TEST_F(Drawing, PointsAreProjectedAndPixelsMeasuredAsByHand) {
  glTranslated(0.3, -0.2, -4);
  glRotated(30, 0, 0, 1);
  glScaled(1.5, 1.1, 1);
  double projection[16], modelview[16];
  glGetDoublev(GL_PROJECTION_MATRIX, projection);
  glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
  const int32_t viewport[4] = {10, 20, width, height};
  const double c = std::cos(std::numbers::pi / 6), s = 0.5;
  for (const auto &[x, y, z] : {std::tuple{1.2, 0.7, 0.0}, {-0.4, 1.3, 0.9}, {0.1, -0.6, -2.3}}) {
    double seen_x = 0, seen_y = 0;
    gfx_project(x, y, z, &seen_x, &seen_y, projection, modelview, viewport);
    const double eye_x = 1.5 * x * c - 1.1 * y * s + 0.3, eye_y = 1.5 * x * s + 1.1 * y * c - 0.2;
    EXPECT_NEAR(seen_x, 10 + width / 2.0 * (1 + eye_x / (4 - z)), 1e-3);
    EXPECT_NEAR(seen_y, 20 + height / 2.0 - width / 2.0 * eye_y / (4 - z), 1e-3);
  }
  EXPECT_NEAR(gfx_units_per_pixel(), 1 / (width / 2.0 * std::sqrt(1.5 * 1.1)), 1e-5);
}

Bytes level_pixels(int level, uint32_t format, size_t size, uint8_t padding = 0) {
  Bytes pixels(size, padding);
  glGetTexImage(GL_TEXTURE_2D, level, format, GL_UNSIGNED_BYTE, pixels.data());
  return pixels;
}

// By the driver and by the read-back: the picture with its last row first, and mip levels that the
// card accepts and draws with.
TEST_F(Drawing, CaptureTakesWhatStandsThere) {
  for (int32_t driver : {1, 0}) {
    has_generate_mipmap = driver;
    gfx_swap(0);
    gfx_push_2d();
    fill(64, 20, 32, 32, 0x0000FF);
    fill(80, 20, 16, 16, 0xFFFF00);
    uint32_t name = texture_capture(64, 20, 32, 32, 1);
    const Bytes pixels = level_pixels(0, GL_RGBA, 32 * 32 * 4);
    EXPECT_EQ(Bytes(pixels.begin(), pixels.begin() + 4), (Bytes{0, 0, 255, 255}));
    EXPECT_EQ(Bytes(pixels.end() - 4, pixels.end()), (Bytes{255, 255, 0, 255}));
    int32_t format[2] = {};
    for (int level : {0, 1})
      glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_INTERNAL_FORMAT, &format[level]);
    EXPECT_TRUE(format[0] == GL_RGBA8 && format[1] == GL_RGBA8);
    texture_max_anisotropy();
    glEnable(GL_TEXTURE_2D);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    glBegin(GL_QUADS); // one pixel shows the whole texture, so its smallest level
    for (int corner : {0, 1, 3, 2}) {
      glTexCoord2i(corner & 1, corner >> 1);
      glVertex2i(10 + (corner & 1), 100 + (corner >> 1));
    }
    glEnd();
    glDisable(GL_TEXTURE_2D);
    gfx_pop_2d();
    EXPECT_NEAR(pixel(10, 100) & 0xFF, 191, 3) << "driver " << driver;
    EXPECT_NEAR(pixel(10, 100) >> 16, 64, 3) << "driver " << driver;
    glDeleteTextures(1, &name);
  }
  has_generate_mipmap = -1;
}

// Each texel of level 1 is the rounded mean of four; each later level goes on from the one before.
TEST_F(Drawing, UploadMakesBoxFilteredLevels) {
  std::mt19937 random(11);
  for (int32_t components = 1; components <= 4; components++) {
    size_t count = static_cast<size_t>(components);
    size_t row = 16 * count; // rows of 16 pixels need no padding
    Bytes above(row * 8);
    for (uint8_t &byte : above)
      byte = static_cast<uint8_t>(random());
    Bytes given = above;
    texture_upload(GL_TEXTURE_2D, components, 16, 8, given.data());
    for (size_t level = 1; level <= 3; level++) {
      size_t half_row = ((16u >> level) * count + 3) / 4 * 4;
      Bytes got = level_pixels(static_cast<int>(level), texture_format(components),
                               half_row * (8u >> level));
      for (size_t y = 0; y < 8u >> level; y++)
        for (size_t x = 0; x < (16u >> level) * count; x++) {
          size_t at = 2 * y * row + x / count * 2 * count + x % count;
          double sum = above[at] + above[at + count] + above[at + row] + above[at + row + count];
          ASSERT_EQ(got[y * half_row + x], std::floor(sum / 4 + 0.5)) << components << " " << level;
        }
      above = got;
      row = half_row;
    }
  }
}

// Odd and one-wide sizes stay inside their bytes; a picture of one colour stays that colour.
TEST_F(Drawing, OddSizesKeepTheirColour) {
  for (auto [w, h] : {std::pair{1, 1}, {7, 5}, {1, 9}, {9, 1}, {3, 64}, {64, 1}}) {
    Bytes pixels(static_cast<size_t>((w * 3 + 3) / 4 * 4 * h), 200);
    texture_upload(GL_TEXTURE_2D, 3, w, h, pixels.data());
    Bytes half(static_cast<size_t>((std::max(w / 2, 1) * 3 + 3) / 4 * 4 * std::max(h / 2, 1)), 200);
    if (w * h == 1) continue;
    EXPECT_EQ(level_pixels(1, GL_RGB, half.size(), 200), half) << w << "x" << h;
  }
}

TEST_F(Drawing, TheDateIsOfItsFixedForm) {
  char date[platform_date_size];
  platform_date(date);
  int n = 0;
  std::sscanf(date, "%*4d-%*3[A-Za-z]-%*2d %*2d:%*2d:%*2d%n", &n);
  EXPECT_TRUE(n == 20 && date[n] == '\0') << date;
}

// Last: the context is gone afterwards. A driver without a display can't move the cursor; the
// mouse's own motion stands in there.
TEST_F(Drawing, MouseDoesNotDriftAndCloseIsSafeToRepeat) {
  for (int frame = 0; frame < 3; frame++) {
    int32_t dx = 1;
    gfx_mouse_recentre(&dx, nullptr);
    EXPECT_TRUE(dx == 0 && gfx_pump() == 0);
  }
  gfx_close_requested();
  gfx_close();
  gfx_resize(0, 0);
  EXPECT_TRUE(!gfx_context_alive() && gfx_pump() == 1 && screen_height == 1);
}

TEST_F(Drawing, FieldOfViewFollowsTheFrame) {
  gfx_resize(1600, 900);
  EXPECT_NEAR(gfx_fov(), 2 * std::atan(4.0 / 3) * 180 / std::numbers::pi, 1e-4);
  for (auto [w, h] : {std::pair{1600, 900}, {640, 480}, {500, 900}, {0, 0}}) {
    gfx_resize(w, h);
    EXPECT_NEAR(gfx_fov_43(), 90, 1e-4) << w << "x" << h;
  }
}

TEST_F(Drawing, ContextHasDepthAndExtensionsByTheirWholeNames) {
  int32_t bits = 0;
  glGetIntegerv(GL_DEPTH_BITS, &bits);
  EXPECT_GE(bits, 24);
  std::string all = reinterpret_cast<const char *>(glGetString(GL_EXTENSIONS));
  std::string first = all.substr(0, all.find(' '));
  int32_t answer = -1;
  EXPECT_TRUE(gl_has_extension(&answer, first.c_str()));
  EXPECT_TRUE(gl_has_extension(&answer, "no such thing")); // not searched again
  answer = -1;
  EXPECT_FALSE(gl_has_extension(&answer, first.substr(0, first.size() - 1).c_str()));
}

} // namespace
