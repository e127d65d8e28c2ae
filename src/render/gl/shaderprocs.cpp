#include "render/gl/shaderprocs.h"

#include <cstdio>

#include "gfx/gl_util.h"
#include "gfx/platform.h"
#include "support/report.h"

ShaderProcs gl2;

namespace {

constexpr double version_needed = 2.0;

int32_t version_read;
int32_t available;
uint8_t bound;

template <typename Proc> void bind(Proc *slot, const char *name) {
  *slot = reinterpret_cast<Proc>(platform_gl_proc(name));
}

void bind_all() {
  bind(&gl2.create_shader, "glCreateShader");
  bind(&gl2.shader_source, "glShaderSource");
  bind(&gl2.compile_shader, "glCompileShader");
  bind(&gl2.create_program, "glCreateProgram");
  bind(&gl2.attach_shader, "glAttachShader");
  bind(&gl2.link_program, "glLinkProgram");
  bind(&gl2.use_program, "glUseProgram");
  bind(&gl2.get_uniform_location, "glGetUniformLocation");
  bind(&gl2.uniform_1f, "glUniform1f");
  bind(&gl2.uniform_2f, "glUniform2f");
  bind(&gl2.uniform_3f, "glUniform3f");
  bind(&gl2.uniform_1i, "glUniform1i");
  bind(&gl2.uniform_1fv, "glUniform1fv");
  bind(&gl2.uniform_2fv, "glUniform2fv");
  bind(&gl2.uniform_1iv, "glUniform1iv");
  bind(&gl2.uniform_matrix_4fv, "glUniformMatrix4fv");
  bind(&gl2.get_shader_iv, "glGetShaderiv");
  bind(&gl2.get_shader_info_log, "glGetShaderInfoLog");
  bind(&gl2.get_program_iv, "glGetProgramiv");
  bind(&gl2.get_program_info_log, "glGetProgramInfoLog");
  bind(&gl2.active_texture, "glActiveTexture");
}

} // namespace

void shader_procs_load() {
  if (bound != 0) return;
  const double version = gl_version();
  if (version < version_needed) {
    char text[128];
    std::snprintf(text, sizeof text,
                  "OpenGL version 2.0 or higher required for shaders; you have version %g",
                  version);
    report_sentence("the display's OpenGL is of version %g, and 2.0 is needed: install a newer "
                    "graphics driver, or Mesa's software driver.",
                    version);
    report_fatal("shaderprocs", 41, text);
  }
  bind_all();
  bound = 1;
}

int32_t shaders_available() {
  if (version_read == 0) {
    version_read = 1;
    if (gl_version() >= version_needed) {
      shader_procs_load();
      available = 1;
    }
  }
  return available;
}
