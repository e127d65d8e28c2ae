#include "render/gantry_texture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

#include "gfx/gl_procs.h"
#include "gfx/window.h"
#include "picture.h"

namespace {

constexpr int size = gantry_texture_size;

std::vector<uint8_t> texture(int32_t tn) { // RGBA, lowest row first
  const GLuint name = gantry_texture(tn);
  std::vector<uint8_t> texels(size_t{size} * size * 4);
  glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
  glDeleteTextures(1, &name);
  return texels;
}

// The counts follow from the formula with 100 samples per texel on a rotated grid. Some samples at
// rims differ by rounding.
TEST(Gantry, TextureHasTheHolesOfTheFormula) {
  picture_begin();
  const std::vector<uint8_t> texels = texture(0);
  int holes = 0, rims = 0;
  double alpha = 0;
  for (size_t i = 3; i < texels.size(); i += 4) {
    holes += texels[i] == 0;
    rims += texels[i] > 0 && texels[i] < 255;
    alpha += texels[i] / 255.0;
  }
  EXPECT_NEAR(holes, 94242, 50);
  EXPECT_NEAR(rims, 2010, 50);
  EXPECT_NEAR(alpha, 166917.3, 10);
}

// First offscreen, with GL state that would change the texture; then in the window, which has only
// 480 of the 512 rows.
TEST(Gantry, TexturesRestoreTheStateAndCanUseTheWindow) {
  picture_begin();
  const std::vector<uint8_t> expected = texture(0);
  glClearColor(0.5F, 0.25F, 0.75F, 1);
  glClear(GL_COLOR_BUFFER_BIT);
  glPushAttrib(GL_ALL_ATTRIB_BITS);
  glViewport(100, 30, 50, 60);
  glColorMask(0, 1, 0, 0);
  glEnable(GL_BLEND);
  glBlendFunc(GL_ZERO, GL_ONE);
  glEnable(GL_SCISSOR_TEST);
  glScissor(0, 0, 3, 3);
  screen_width /= 2;
  EXPECT_EQ(texture(0), expected);
  EXPECT_EQ(screen_width, picture_width / 2);
  EXPECT_EQ(screen_height, picture_height);
  EXPECT_TRUE(glIsEnabled(GL_BLEND));
  EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
  glPopAttrib();
  glClearColor(0, 0, 0, 0);
  EXPECT_LE(colour_distance(picture_colour(picture_take(), 300, 200), 0x8040BFu), 1);
  picture_begin();
  int32_t window_alpha = 0;
  glGetIntegerv(GL_ALPHA_BITS, &window_alpha);
  if (window_alpha == 0) GTEST_SKIP() << "the window has no alpha";
  const auto gen_framebuffers = std::exchange(gl.gen_framebuffers, nullptr);
  const std::vector<uint8_t> taken = texture(0);
  gl.gen_framebuffers = gen_framebuffers;
  int off = 0;
  for (size_t i = size_t{size} * (size - picture_height) * 4; i < taken.size(); i++)
    off += std::abs(taken[i] - expected[i]);
  EXPECT_LT(off, size * picture_height * 4); // some rims may be sampled half a texel away
  const Picture picture = picture_take();
  EXPECT_EQ(std::count(picture.bgra.begin(), picture.bgra.end(), 0), 640 * 480 * 4);
}

} // namespace
