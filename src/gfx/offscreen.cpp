#include "gfx/offscreen.h"

#include "gfx/gl.h"
#include "gfx/gl_procs.h"
#include "gfx/gl_util.h"
#include "gfx/screen.h"

namespace {

int32_t has_framebuffer_object = -1; // as gl_has_extension keeps it

bool has_framebuffers() {
  if (!gl_has_extension(&has_framebuffer_object, "GL_ARB_framebuffer_object")) return false;
  gl_procs_load();
  return gl.gen_framebuffers != nullptr;
}

uint32_t make_renderbuffer(GLenum format, GLenum attachment, int32_t width, int32_t height) {
  uint32_t name = 0;
  gl.gen_renderbuffers(1, &name);
  gl.bind_renderbuffer(GL_RENDERBUFFER, name);
  gl.renderbuffer_storage(GL_RENDERBUFFER, format, width, height);
  gl.framebuffer_renderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, name);
  return name;
}

void make_buffers(Offscreen *target, int32_t width, int32_t height, bool with_depth) {
  GLint before = 0;
  glGetIntegerv(GL_FRAMEBUFFER_BINDING, &before);
  target->framebuffer_before = static_cast<GLuint>(before);
  gl.gen_framebuffers(1, &target->framebuffer);
  gl.bind_framebuffer(GL_FRAMEBUFFER, target->framebuffer);
  target->colour = make_renderbuffer(GL_RGBA8, GL_COLOR_ATTACHMENT0, width, height);
  if (with_depth)
    target->depth = make_renderbuffer(GL_DEPTH_COMPONENT24, GL_DEPTH_ATTACHMENT, width, height);
}

void delete_buffers(const Offscreen *target) {
  gl.bind_framebuffer(GL_FRAMEBUFFER, target->framebuffer_before);
  gl.delete_framebuffers(1, &target->framebuffer);
  gl.delete_renderbuffers(1, &target->colour);
  gl.delete_renderbuffers(1, &target->depth); // 0 is ignored
}

} // namespace

// glPushAttrib also saves which buffer of the bound framebuffer is drawn to, so it and glPopAttrib
// run while the previous framebuffer is bound.
bool offscreen_begin(Offscreen *target, int32_t width, int32_t height, bool with_depth) {
  if (!has_framebuffers()) return false;
  *target = {};
  glPushAttrib(GL_VIEWPORT_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_ENABLE_BIT);
  make_buffers(target, width, height, with_depth);
  if (gl.check_framebuffer_status(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
    delete_buffers(target);
    glPopAttrib();
    return false;
  }
  glDisable(GL_BLEND);
  glDisable(GL_SCISSOR_TEST);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glClearColor(0, 0, 0, 0);
  glViewport(0, 0, width, height);
  target->width_before = screen_width;
  target->height_before = screen_height;
  screen_width = width;
  screen_height = height;
  return true;
}

void offscreen_end(Offscreen *target) {
  screen_width = target->width_before;
  screen_height = target->height_before;
  delete_buffers(target);
  glPopAttrib();
}
