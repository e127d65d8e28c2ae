#include "text/text.h"

#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
#include "gfx/gl.h"

namespace {

std::vector<int32_t> state() {
  std::vector<int32_t> values;
  for (const GLenum name :
       {GL_BLEND, GL_BLEND_SRC, GL_BLEND_DST, GL_LIGHTING, GL_DEPTH_TEST, GL_DEPTH_WRITEMASK,
        GL_ALPHA_TEST, GL_ALPHA_TEST_FUNC, GL_TEXTURE_2D, GL_TEXTURE_BINDING_2D, GL_MATRIX_MODE}) {
    values.push_back(0);
    glGetIntegerv(name, &values.back());
  }
  return values;
}

TEST(Text, BlocksLeaveTheStateAsItWas) {
  fonts_for_test();
  glBlendFunc(GL_ZERO, GL_ONE);
  glAlphaFunc(GL_LESS, 0.25F);
  glEnable(GL_LIGHTING);
  glBindTexture(GL_TEXTURE_2D, 0);
  const std::vector<int32_t> before = state();
  text_begin();
  text_print(20, 20, 0, 0, "H", 0xFFFFFF);
  text_end();
  EXPECT_EQ(state(), before);
  text3d_begin();
  text3d_print(0, 0, -5, "H", 0, -1, 0, 1, 0, 0);
  text3d_end();
  EXPECT_EQ(state(), before);
  glDisable(GL_LIGHTING);
}

} // namespace
