#include "gfx/offscreen.h"

#include <cassert>

#include "gfx/gl.h"
#include "gfx/gl_procs.h"
#include "gfx/gl_util.h"
#include "gfx/screen.h"

namespace {

int32_t has_framebuffer_object = -1; // as gl_has_extension keeps it

// The framebuffer in use, and what to restore after it.
struct Target {
  GLuint framebuffer, colour; // 0 while there is none
  GLuint framebuffer_before;
  int32_t width_before, height_before;
};

Target target;

bool has_framebuffers() {
  if (!gl_has_extension(&has_framebuffer_object, "GL_ARB_framebuffer_object")) return false;
  gl_procs_load();
  return gl.gen_framebuffers != nullptr;
}

void make_target(int32_t width, int32_t height) {
  GLint before = 0;
  glGetIntegerv(GL_FRAMEBUFFER_BINDING, &before);
  target.framebuffer_before = static_cast<GLuint>(before);
  gl.gen_framebuffers(1, &target.framebuffer);
  gl.gen_renderbuffers(1, &target.colour);
  gl.bind_renderbuffer(GL_RENDERBUFFER, target.colour);
  gl.renderbuffer_storage(GL_RENDERBUFFER, GL_RGBA8, width, height);
  gl.bind_framebuffer(GL_FRAMEBUFFER, target.framebuffer);
  gl.framebuffer_renderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, target.colour);
}

void drop_target() {
  gl.bind_framebuffer(GL_FRAMEBUFFER, target.framebuffer_before);
  gl.delete_framebuffers(1, &target.framebuffer);
  gl.delete_renderbuffers(1, &target.colour);
  target = {};
}

} // namespace

// Pushes and pops the state while the previous framebuffer is bound, since it selects buffers of
// it.
bool offscreen_begin(int32_t width, int32_t height) {
  assert(target.framebuffer == 0);
  if (!has_framebuffers()) return false;
  glPushAttrib(GL_VIEWPORT_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_ENABLE_BIT);
  make_target(width, height);
  if (gl.check_framebuffer_status(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
    drop_target();
    glPopAttrib();
    return false;
  }
  glDisable(GL_BLEND);
  glDisable(GL_SCISSOR_TEST);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glClearColor(0, 0, 0, 0);
  glViewport(0, 0, width, height);
  target.width_before = screen_width;
  target.height_before = screen_height;
  screen_width = width;
  screen_height = height;
  return true;
}

void offscreen_end() {
  assert(target.framebuffer != 0);
  screen_width = target.width_before;
  screen_height = target.height_before;
  drop_target();
  glPopAttrib();
}
