#include "render/gantry_texture.h"

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/offscreen.h"
#include "gfx/texture.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/shader_text.h"

namespace {

GLuint texture_program;

// The texture's first row is the lowest on the screen, where y is largest.
void draw_plate(int32_t tn) {
  constexpr int32_t size = gantry_texture_size;
  gl.use_program(texture_program);
  program_set_int(texture_program, "tn", tn);
  glBegin(GL_QUADS);
  glTexCoord2i(0, 1);
  glVertex2i(0, 0);
  glTexCoord2i(1, 1);
  glVertex2i(size, 0);
  glTexCoord2i(1, 0);
  glVertex2i(size, size);
  glTexCoord2i(0, 0);
  glVertex2i(0, size);
  glEnd();
  gl.use_program(0);
}

} // namespace

uint32_t gantry_texture(int32_t tn) {
  if (texture_program == 0) {
    texture_program = fragment_program_build(shader_gantry_texture, nullptr, nullptr);
  }
  Offscreen target;
  const bool is_offscreen = offscreen_begin(&target, gantry_texture_size, gantry_texture_size);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  gfx_push_2d();
  draw_plate(tn);
  gfx_pop_2d();
  const uint32_t name = texture_capture(0, 0, gantry_texture_size, gantry_texture_size, 1);
  texture_max_anisotropy();
  if (is_offscreen) {
    offscreen_end(&target);
  } else {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }
  return name;
}
