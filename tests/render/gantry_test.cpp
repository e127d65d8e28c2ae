#include "render/gantry_texture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "gfx/gl.h"
#include "gfx/offscreen.h"
#include "gfx/window.h"
#include "picture.h"
#include "support/random.h"

namespace {

constexpr int size = gantry_texture_size;
constexpr double turn = 6.283185307179586;

// The plate's height over texture coordinates, below -0.3 in holes.
double plate_height(double s, double t) {
  return std::sin(turn * 2 * s) + std::sin(turn * (s + t)) + std::sin(turn * (s - t));
}

std::vector<uint8_t> texture(int32_t tn) { // RGBA, lowest row first
  const GLuint name = gantry_texture(tn);
  std::vector<uint8_t> texels(size_t{size} * size * 4);
  glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
  glDeleteTextures(1, &name);
  return texels;
}

// A texel is the mean of a hundred samples, on a grid that is turned a little.
TEST(Gantry, HolesAreSampledOnATurnedGrid) {
  picture_begin();
  rand_seed(3);
  const std::vector<uint8_t> texels = texture(0);
  int holes = 0;
  for (size_t i = 3; i < texels.size(); i += 4)
    holes += texels[i] == 0;
  EXPECT_NEAR(holes, 94242, 50);
  for (int trial = 0; trial < 8000; trial++) {
    const int at = rand_int(size * size);
    double alpha = 0;
    for (int i = 0; i < 100; i++) {
      const double x = i / 10, y = i % 10;
      const double s = (at % size + 0.5 + (x + y / 10) / 10) / size;
      const double t = (at / size + 0.5 + (y - x / 10) / 10) / size;
      if (plate_height(s, t) >= -0.3) alpha += 2.55;
    }
    EXPECT_NEAR(texels[static_cast<size_t>(at) * 4 + 3], alpha, 7); // rims are a matter of rounding
  }
}

// First out of sight, under a state that would spoil them; then in the window, whose 480 rows are
// all that there is of the 512.
TEST(Gantry, TexturesLeaveNoTraceAndCanDoWithTheWindow) {
  picture_begin();
  const std::vector<uint8_t> usual = texture(0);
  glClearColor(0.5F, 0.25F, 0.75F, 1);
  glClear(GL_COLOR_BUFFER_BIT);
  glViewport(100, 30, 50, 60);
  glColorMask(0, 1, 0, 0);
  glEnable(GL_BLEND);
  glBlendFunc(GL_ZERO, GL_ONE);
  glEnable(GL_SCISSOR_TEST);
  glScissor(0, 0, 3, 3);
  screen_width /= 2;
  EXPECT_EQ(texture(0), usual);
  EXPECT_TRUE(screen_width == picture_width / 2 && screen_height == picture_height);
  EXPECT_TRUE(glIsEnabled(GL_BLEND) && glIsEnabled(GL_SCISSOR_TEST));
  glDisable(GL_BLEND);
  glDisable(GL_SCISSOR_TEST);
  glColorMask(1, 1, 1, 1);
  glClearColor(0, 0, 0, 0);
  EXPECT_LE(colour_distance(picture_colour(picture_take(), 300, 200), 0x8040BFu), 1);
  picture_begin();
  int32_t window_alpha = 0;
  glGetIntegerv(GL_ALPHA_BITS, &window_alpha);
  if (window_alpha == 0) GTEST_SKIP() << "a window without alpha holds no plate";
  has_framebuffer_object = 0;
  const std::vector<uint8_t> taken = texture(0);
  has_framebuffer_object = -1;
  int off = 0;
  for (size_t i = size_t{size} * (size - picture_height) * 4; i < taken.size(); i++)
    off += std::abs(taken[i] - usual[i]);
  EXPECT_LT(off, size * picture_height * 4); // some rims may be sampled half a texel away
  const Picture picture = picture_take();
  EXPECT_EQ(std::count(picture.bgra.begin(), picture.bgra.end(), 0), 640 * 480 * 4);
}

} // namespace
