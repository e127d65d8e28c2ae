#include "gfx/gl_procs.h"

#include "gfx/platform.h"

GlProcs gl;

namespace {

template <typename Proc> void bind(Proc *slot, const char *name) {
  *slot = reinterpret_cast<Proc>(platform_gl_proc(name));
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

void bind_framebuffers() {
  bind(&gl.gen_framebuffers, "glGenFramebuffers");
  bind(&gl.bind_framebuffer, "glBindFramebuffer");
  bind(&gl.delete_framebuffers, "glDeleteFramebuffers");
  bind(&gl.gen_renderbuffers, "glGenRenderbuffers");
  bind(&gl.bind_renderbuffer, "glBindRenderbuffer");
  bind(&gl.delete_renderbuffers, "glDeleteRenderbuffers");
  bind(&gl.renderbuffer_storage, "glRenderbufferStorage");
  bind(&gl.framebuffer_renderbuffer, "glFramebufferRenderbuffer");
  bind(&gl.check_framebuffer_status, "glCheckFramebufferStatus");
  const bool complete = gl.bind_framebuffer != nullptr && gl.delete_framebuffers != nullptr &&
                        gl.gen_renderbuffers != nullptr && gl.bind_renderbuffer != nullptr &&
                        gl.delete_renderbuffers != nullptr && gl.renderbuffer_storage != nullptr &&
                        gl.framebuffer_renderbuffer != nullptr &&
                        gl.check_framebuffer_status != nullptr;
  if (!complete) gl.gen_framebuffers = nullptr;
}

} // namespace

void gl_procs_load() {
  if (gl.create_shader != nullptr) return;
  bind_shaders();
  bind_framebuffers();
  bind(&gl.generate_mipmap, "glGenerateMipmap");
}
