#include "text/text.h"

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "support/vec3.h"
#include "text/font.h"
#include "text/layout.h"

int32_t text_blend_mode = 3;

namespace {

// The scale of texts in pixel space.
constexpr float text_scale_x = 1.0F;
constexpr float text_scale_y = 1.0F;

struct Blend {
  GLenum source, target;
};

// By text_blend_mode, which counts from 1.
constexpr Blend screen_blends[] = {{GL_ONE, GL_ZERO},
                                   {GL_DST_COLOR, GL_ONE_MINUS_SRC_ALPHA},
                                   {GL_ONE, GL_ONE_MINUS_SRC_COLOR},
                                   {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA}};
constexpr Blend world_blends[] = {{GL_ONE, GL_ZERO},
                                  {GL_ZERO, GL_ONE_MINUS_SRC_COLOR},
                                  {GL_SRC_ALPHA, GL_ONE},
                                  {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA}};

void set_blend(const Blend (&blends)[4]) {
  if (text_blend_mode < 1 || text_blend_mode > 4) return;
  const Blend blend = blends[text_blend_mode - 1];
  glBlendFunc(blend.source, blend.target);
}

void bind_font() {
  glBindTexture(GL_TEXTURE_2D, current_font != nullptr ? current_font->texture : 0);
}

void begin_quads() {
  glBegin(GL_QUADS);
}

void draw_quad(const TextQuad *quad) {
  glTexCoord2f(quad->tex_left, quad->tex_top);
  glVertex2f(quad->left, quad->top);
  glTexCoord2f(quad->tex_right, quad->tex_top);
  glVertex2f(quad->right, quad->top);
  glTexCoord2f(quad->tex_right, quad->tex_bottom);
  glVertex2f(quad->right, quad->bottom);
  glTexCoord2f(quad->tex_left, quad->tex_bottom);
  glVertex2f(quad->left, quad->bottom);
}

constexpr TextOutput screen_output = {draw_quad, glEnd, begin_quads};

void vertex(Vec3 place, uint32_t tex_x, uint32_t tex_y) {
  glTexCoord2f(static_cast<float>(tex_x) / static_cast<float>(current_font->tex_width),
               static_cast<float>(tex_y) / static_cast<float>(current_font->tex_height));
  glVertex3d(place.x, place.y, place.z);
}

// Draws a glyph in the world and returns the vector to the next one.
Vec3 draw_glyph(Vec3 pen, uint8_t code, Vec3 line, Vec3 step) {
  const uint32_t left = current_font->glyph_x[code];
  const uint32_t top = current_font->glyph_y[code];
  const uint32_t width = current_font->glyph_width[code];
  const Vec3 pixel = step * (1.0 / text_height);
  const Vec3 across = pixel * width;
  vertex(pen, left, top);
  vertex(pen + across, left + width, top);
  vertex(pen + across + line, left + width, top + text_height);
  vertex(pen + line, left, top + text_height);
  return across + pixel;
}

} // namespace

void text_begin() {
  glPushAttrib(GL_TRANSFORM_BIT | GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_TEXTURE_BIT);
  gfx_push_2d();
  glScalef(text_scale_x, text_scale_y, 1.0F);
  glEnable(GL_BLEND);
  glDisable(GL_LIGHTING);
  set_blend(screen_blends);
  glEnable(GL_TEXTURE_2D);
  bind_font();
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
  begin_quads();
}

void text_end() {
  glEnd();
  gfx_pop_2d();
  glPopAttrib();
}

float text_print(float x, float y, float wrap_x, float bottom_y, const char *text,
                 uint32_t colour) {
  gfx_set_colour(colour);
  return text_layout(&screen_output, x, y, wrap_x, bottom_y, text);
}

void text3d_begin() {
  glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_TEXTURE_BIT);
  glEnable(GL_TEXTURE_2D);
  bind_font();
  glEnable(GL_BLEND);
  set_blend(world_blends);
  glEnable(GL_ALPHA_TEST);
  glAlphaFunc(GL_GREATER, 0.0F);
  begin_quads();
}

void text3d_end() {
  glEnd();
  glPopAttrib();
}

void text3d_print(double x, double y, double z, const char *text, double line_x, double line_y,
                  double line_z, double step_x, double step_y, double step_z) {
  if (current_font == nullptr || text_height == 0) return;
  const Vec3 line = {line_x, line_y, line_z};
  const Vec3 step = {step_x, step_y, step_z};
  Vec3 line_start = {x, y, z};
  Vec3 pen = line_start;
  for (; *text != '\0'; text++) {
    if (*text == '\n') {
      line_start = line_start + line;
      pen = line_start;
    } else if (*text == '\t') {
      pen = pen + step;
    } else {
      pen = pen + draw_glyph(pen, static_cast<uint8_t>(*text), line, step);
    }
  }
}
