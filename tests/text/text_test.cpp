#include "text/text.h"

#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "picture.h"

// A glyph of 2 grey and 2 transparent pixels. The text in the world has an alpha of 5/16.
TEST(Text, BlendsByModeAndRestoresTheState) {
  const auto state = [] {
    std::vector<int32_t> values;
    for (const GLenum name : {GL_LIGHTING, GL_BLEND_SRC, GL_TEXTURE_BINDING_2D})
      glGetIntegerv(name, &values.emplace_back());
    return values;
  };
  fonts_for_test();
  const uint8_t records[] = {0, 0, 4, 1, 27, 27, 255, 255};
  current_font = nullptr;
  font_build(records, sizeof records, "grey"); // is then current
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glBindTexture(GL_TEXTURE_2D, 0);
  glClearColor(64 / 255.0F, 96 / 255.0F, 128 / 255.0F, 0);
  constexpr uint32_t background = 0x406080;
  const struct {
    int32_t mode;
    uint32_t screen, transparent, world;
  } rows[] = {{text_blend_mode, 0x9B868F, background, 0x66738A}, // 3
              {1, 0x7A3D1F, 0, 0x7A3D1F},
              {2, 0x1F170F, background, 0x214971},
              {4, 0x7A3D1F, background, 0x525561},
              {5, 0xBA9D9F, background, 0xBA9D9F}}; // GL_ONE, GL_ONE as before
  for (const auto &row : rows) {
    SCOPED_TRACE(row.mode);
    text_blend_mode = row.mode;
    picture_begin();
    glBlendFunc(GL_ONE, GL_ONE);
    glEnable(GL_LIGHTING);
    const std::vector<int32_t> before = state();
    text_begin();
    text_print(20, 30, 0, 0, "\1", 0xFF8040);
    text_end();
    EXPECT_EQ(state(), before);
    gfx_push_2d();
    glDisable(GL_LIGHTING);
    glColor4ub(255, 128, 64, 80);
    text3d_begin();
    text3d_print(20, 48, 0, "\n\t\n\1", 0, 1, 0, 1, 0, 0);
    text3d_end();
    glEnable(GL_LIGHTING);
    gfx_pop_2d();
    EXPECT_EQ(state(), before);
    const Picture picture = picture_take();
    EXPECT_LE(colour_distance(picture_colour(picture, 21, 30), row.screen), 1);
    EXPECT_LE(colour_distance(picture_colour(picture, 22, 30), row.transparent), 1);
    EXPECT_LE(colour_distance(picture_colour(picture, 21, 50), row.world), 1);
    EXPECT_EQ(picture_colour(picture, 22, 50), background);
  }
  text_blend_mode = rows[0].mode;
  glDisable(GL_LIGHTING);
  glClearColor(0, 0, 0, 0);
  int32_t filter = 0;
  glBindTexture(GL_TEXTURE_2D, current_font->texture);
  glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &filter);
  EXPECT_EQ(filter, GL_LINEAR_MIPMAP_LINEAR);
  font_delete(current_font);
}
