#include "gfx/gl_procs.h"

#include "gfx/platform.h"

GlProcs gl;

namespace {

bool loaded;

// False if the driver has no such entry point.
template <typename Proc> bool bind(Proc *slot, const char *name) {
  *slot = reinterpret_cast<Proc>(platform_gl_proc(name));
  return *slot != nullptr;
}

void bind_shaders() {
  bind(&gl.create_shader, "glCreateShader");
  bind(&gl.shader_source, "glShaderSource");
  bind(&gl.compile_shader, "glCompileShader");
  bind(&gl.create_program, "glCreateProgram");
  bind(&gl.attach_shader, "glAttachShader");
  bind(&gl.link_program, "glLinkProgram");
  bind(&gl.use_program, "glUseProgram");
  bind(&gl.get_uniform_location, "glGetUniformLocation");
  bind(&gl.uniform_1f, "glUniform1f");
  bind(&gl.uniform_2f, "glUniform2f");
  bind(&gl.uniform_3f, "glUniform3f");
  bind(&gl.uniform_1i, "glUniform1i");
  bind(&gl.uniform_1fv, "glUniform1fv");
  bind(&gl.uniform_2fv, "glUniform2fv");
  bind(&gl.uniform_1iv, "glUniform1iv");
  bind(&gl.uniform_matrix_4fv, "glUniformMatrix4fv");
  bind(&gl.get_shader_iv, "glGetShaderiv");
  bind(&gl.get_shader_info_log, "glGetShaderInfoLog");
  bind(&gl.get_program_iv, "glGetProgramiv");
  bind(&gl.get_program_info_log, "glGetProgramInfoLog");
  bind(&gl.active_texture, "glActiveTexture");
}

// All or none: a missing one leaves gen_framebuffers null.
void bind_framebuffers() {
  const bool complete = bind(&gl.bind_framebuffer, "glBindFramebuffer") &&
                        bind(&gl.delete_framebuffers, "glDeleteFramebuffers") &&
                        bind(&gl.gen_renderbuffers, "glGenRenderbuffers") &&
                        bind(&gl.bind_renderbuffer, "glBindRenderbuffer") &&
                        bind(&gl.delete_renderbuffers, "glDeleteRenderbuffers") &&
                        bind(&gl.renderbuffer_storage, "glRenderbufferStorage") &&
                        bind(&gl.framebuffer_renderbuffer, "glFramebufferRenderbuffer") &&
                        bind(&gl.check_framebuffer_status, "glCheckFramebufferStatus");
  if (complete) bind(&gl.gen_framebuffers, "glGenFramebuffers");
}

} // namespace

void gl_procs_load() {
  if (loaded) return;
  loaded = true;
  bind_shaders();
  bind_framebuffers();
  bind(&gl.generate_mipmap, "glGenerateMipmap");
}
