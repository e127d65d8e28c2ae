#include "gfx/offscreen.h"

#include <cassert>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/platform.h"
#include "gfx/window.h"

int32_t has_framebuffer_object = -1;

namespace {

struct Procs {
  PFNGLGENFRAMEBUFFERSPROC gen_framebuffers;
  PFNGLBINDFRAMEBUFFERPROC bind_framebuffer;
  PFNGLDELETEFRAMEBUFFERSPROC delete_framebuffers;
  PFNGLGENRENDERBUFFERSPROC gen_renderbuffers;
  PFNGLBINDRENDERBUFFERPROC bind_renderbuffer;
  PFNGLDELETERENDERBUFFERSPROC delete_renderbuffers;
  PFNGLRENDERBUFFERSTORAGEPROC renderbuffer_storage;
  PFNGLFRAMEBUFFERRENDERBUFFERPROC framebuffer_renderbuffer;
  PFNGLCHECKFRAMEBUFFERSTATUSPROC check_framebuffer_status;
};

// What is drawn to, and what was before.
struct Target {
  GLuint framebuffer, colour; // 0 while there is none
  GLuint framebuffer_before;
  int32_t width_before, height_before;
};

Procs procs;
Target target;

// False if the driver has no such entry point.
template <typename Proc> bool bind(Proc *slot, const char *name) {
  *slot = reinterpret_cast<Proc>(platform_gl_proc(name));
  return *slot != nullptr;
}

bool load_procs() {
  if (!gl_has_extension(&has_framebuffer_object, "GL_ARB_framebuffer_object")) return false;
  if (procs.gen_framebuffers != nullptr) return true;
  const bool complete = bind(&procs.gen_framebuffers, "glGenFramebuffers") &&
                        bind(&procs.bind_framebuffer, "glBindFramebuffer") &&
                        bind(&procs.delete_framebuffers, "glDeleteFramebuffers") &&
                        bind(&procs.gen_renderbuffers, "glGenRenderbuffers") &&
                        bind(&procs.bind_renderbuffer, "glBindRenderbuffer") &&
                        bind(&procs.delete_renderbuffers, "glDeleteRenderbuffers") &&
                        bind(&procs.renderbuffer_storage, "glRenderbufferStorage") &&
                        bind(&procs.framebuffer_renderbuffer, "glFramebufferRenderbuffer") &&
                        bind(&procs.check_framebuffer_status, "glCheckFramebufferStatus");
  if (!complete) procs = {};
  return complete;
}

void make_target(int32_t width, int32_t height) {
  GLint before = 0;
  glGetIntegerv(GL_FRAMEBUFFER_BINDING, &before);
  target.framebuffer_before = static_cast<GLuint>(before);
  procs.gen_framebuffers(1, &target.framebuffer);
  procs.gen_renderbuffers(1, &target.colour);
  procs.bind_renderbuffer(GL_RENDERBUFFER, target.colour);
  procs.renderbuffer_storage(GL_RENDERBUFFER, GL_RGBA8, width, height);
  procs.bind_framebuffer(GL_FRAMEBUFFER, target.framebuffer);
  procs.framebuffer_renderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                                 target.colour);
}

void drop_target() {
  procs.bind_framebuffer(GL_FRAMEBUFFER, target.framebuffer_before);
  procs.delete_framebuffers(1, &target.framebuffer);
  procs.delete_renderbuffers(1, &target.colour);
  target = {};
}

} // namespace

// The state is kept and given back with the framebuffer before bound, whose buffers it names.
bool offscreen_begin(int32_t width, int32_t height) {
  assert(target.framebuffer == 0);
  if (!load_procs()) return false;
  glPushAttrib(GL_VIEWPORT_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_ENABLE_BIT);
  make_target(width, height);
  if (procs.check_framebuffer_status(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
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
