#include "text/text.h"

#include <vector>

#include <gtest/gtest.h>

#include "fonts.h"
#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "picture.h"
#include "support/mat3.h"
#include "text/layout.h"
#include "text/style.h"

namespace {

void print(Vec3 p, const char *text, Vec3 line, Vec3 step) {
  text3d_begin();
  text3d_print(p.x, p.y, p.z, text, line.x, line.y, line.z, step.x, step.y, step.z);
  text3d_end();
}

// In pixel space times a matrix without zeros, whose inverse has whole numbers.
TEST(Text, InTheWorldFollowsItsVectors) {
  fonts_for_test();
  text_begin();
  text_print(30, 50, 0, 0, "8ab", 0x90B0D0);
  text_print(static_cast<float>(30 + text_width("8ab") + 1 + 13), 50, 0, 0, "c", 0x90B0D0);
  text_print(30, 63, 0, 0, "gWm", 0x90B0D0);
  text_print(30, 76, 0, 0, "\xE9", 0x90B0D0);
  text_end();
  const Picture expected = picture_take();
  fonts_for_test();
  const double columns[] = {2, 1, 1, 0, 3, 1, 2, 0, 1, 1, 1, 0, 0, 0, 0, 1};
  const Mat3 inverse = Mat3_inverse({{{2, 3, 1}, {1, 1, 1}, {1, 2, 1}}});
  const Vec3 place = inverse * Vec3{30, 50, 0};
  const Vec3 line = inverse * Vec3{0, 13, 0}, step = inverse * Vec3{13, 0, 0};
  gfx_push_2d();
  glMultMatrixd(columns);
  glColor3ub(0x90, 0xB0, 0xD0);
  print(place, "8ab\tc\ngWm\n\xE9", line, step);
  font_apply("fmod:height=0");
  print(place, "no cells", line, step);
  current_font = nullptr;
  print(place, "no font", line, step);
  gfx_pop_2d();
  EXPECT_EQ(picture_take().bgra, expected.bgra);
}

std::vector<float> state() {
  std::vector<float> values;
  for (const GLenum name :
       {GL_BLEND, GL_BLEND_SRC, GL_BLEND_DST, GL_LIGHTING, GL_ALPHA_TEST, GL_ALPHA_TEST_FUNC,
        GL_ALPHA_TEST_REF, GL_TEXTURE_2D, GL_TEXTURE_BINDING_2D})
    glGetFloatv(name, &values.emplace_back());
  return values;
}

// Glyphs of 2 grey and 2 transparent pixels; the text in the world has an alpha of 5/16.
TEST(Text, IsBlendedByItsModeAndLeavesTheStateAsItWas) {
  fonts_for_test();
  const uint8_t records[] = {0, 0, 4, 1, 27, 27, 255, 255};
  current_font = nullptr;
  font_build(records, sizeof records, "grey"); // is then current
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glBindTexture(GL_TEXTURE_2D, 0);
  glClearColor(64 / 255.0F, 96 / 255.0F, 128 / 255.0F, 0);
  constexpr uint32_t behind = 0x406080;
  const struct {
    int32_t mode;
    uint32_t screen, transparent, world;
  } rows[] = {{text_blend_mode, 0x9B868F, behind, 0x66738A}, // 3
              {1, 0x7A3D1F, 0, 0x7A3D1F},
              {2, 0x1F170F, behind, 0x214971},
              {4, 0x7A3D1F, behind, 0x525561},
              {5, 0xBA9D9F, behind, 0xBA9D9F}}; // GL_ONE, GL_ONE as before
  for (const auto &row : rows) {
    SCOPED_TRACE(row.mode);
    text_blend_mode = row.mode;
    picture_begin();
    glBlendFunc(GL_ONE, GL_ONE);
    glAlphaFunc(GL_LESS, 0.25F);
    glEnable(GL_LIGHTING);
    const std::vector<float> before = state();
    text_begin();
    text_print(20, 30, 0, 0, "\1", 0xFF8040);
    glEnd();
    int32_t filter = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &filter);
    EXPECT_EQ(filter, GL_LINEAR_MIPMAP_LINEAR);
    glBegin(GL_QUADS);
    text_end();
    EXPECT_EQ(state(), before);
    glDisable(GL_LIGHTING);
    gfx_push_2d();
    glColor4ub(255, 128, 64, 80);
    print({20, 50, 0}, "\1", {0, 1, 0}, {1, 0, 0});
    gfx_pop_2d();
    glEnable(GL_LIGHTING);
    EXPECT_EQ(state(), before);
    const Picture picture = picture_take();
    EXPECT_LE(colour_distance(picture_colour(picture, 21, 30), row.screen), 1);
    EXPECT_LE(colour_distance(picture_colour(picture, 22, 30), row.transparent), 1);
    EXPECT_LE(colour_distance(picture_colour(picture, 21, 50), row.world), 1);
    EXPECT_EQ(picture_colour(picture, 22, 50), behind);
  }
  text_blend_mode = rows[0].mode;
  glDisable(GL_LIGHTING);
  glClearColor(0, 0, 0, 0);
  font_delete(current_font);
}

} // namespace
