#include "render/gl/shader_program.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "render/gl/shaderprocs.h"
#include "support/file.h"
#include "support/memory.h"
#include "support/report.h"
#include "support/strings.h"

namespace {

const char *error_log = "shader_error.log";

} // namespace

const char *shader_set_error_log(const char *path) {
  return std::exchange(error_log, path);
}

GLuint shader_compile(GLenum kind, const char *const *strings, int32_t count) {
  const GLuint shader = gl.create_shader(kind);
  gl.shader_source(shader, count, strings, nullptr);
  gl.compile_shader(shader);
  return shader;
}

char *shader_info_log(GLuint object, int32_t is_program) {
  GLint size = 0;
  if (is_program != 0) {
    gl.get_program_iv(object, GL_INFO_LOG_LENGTH, &size);
  } else {
    gl.get_shader_iv(object, GL_INFO_LOG_LENGTH, &size);
  }
  char *log = nullptr;
  if (size <= 0) {
    str_dup_into(&log, "No information log");
    return log;
  }
  log = static_cast<char *>(memory_zeroed(static_cast<size_t>(size)));
  if (is_program != 0) {
    gl.get_program_info_log(object, size, nullptr, log);
  } else {
    gl.get_shader_info_log(object, size, nullptr, log);
  }
  return log;
}

void shader_log_failure(GLuint object, int32_t is_program) {
  if (error_log == nullptr) return;
  GLint good = 0;
  if (is_program != 0) {
    gl.get_program_iv(object, GL_LINK_STATUS, &good);
  } else {
    gl.get_shader_iv(object, GL_COMPILE_STATUS, &good);
  }
  if (good != 0) return;
  char *log = shader_info_log(object, is_program);
  if (!file_append_line(error_log, log))
    report_sentence("a shader failed, and \"%s\" could not be written (%s)", error_log,
                    std::strerror(errno));
  std::free(log);
}

namespace {

void add_stage(GLuint program, GLenum kind, const char *const *strings, int32_t count, char **log) {
  const GLuint shader = shader_compile(kind, strings, count);
  if (log != nullptr) *log = shader_info_log(shader, 0);
  shader_log_failure(shader, 0);
  gl.attach_shader(program, shader);
}

} // namespace

GLuint program_build(const char *const *vertex_strings, int32_t vertex_count,
                     const char *const *fragment_strings, int32_t fragment_count, char **vertex_log,
                     char **fragment_log, char **program_log) {
  if (shaders_available() == 0) return 0;
  const GLuint program = gl.create_program();
  if (vertex_strings != nullptr) {
    add_stage(program, GL_VERTEX_SHADER, vertex_strings, vertex_count, vertex_log);
  }
  if (fragment_strings != nullptr) {
    add_stage(program, GL_FRAGMENT_SHADER, fragment_strings, fragment_count, fragment_log);
  }
  gl.link_program(program);
  if (program_log != nullptr) *program_log = shader_info_log(program, 1);
  shader_log_failure(program, 1);
  return program;
}

GLuint fragment_program_build(const char *source, char **fragment_log, char **program_log) {
  return program_build(nullptr, 0, &source, 1, nullptr, fragment_log, program_log);
}

GLuint program_join(const char *vertex_shared, const char *vertex, const char *fragment_shared,
                    const char *fragment) {
  const char *const vertex_strings[] = {vertex_shared, vertex};
  const char *const fragment_strings[] = {fragment_shared, fragment};
  const int32_t vertex_first = vertex_shared == nullptr ? 1 : 0;
  const int32_t fragment_first = fragment_shared == nullptr ? 1 : 0;
  return program_build(vertex_strings + vertex_first, 2 - vertex_first,
                       fragment_strings + fragment_first, 2 - fragment_first, nullptr, nullptr,
                       nullptr);
}

void program_use(GLuint program, const float projection[16]) {
  gl.use_program(program);
  gl.uniform_matrix_4fv(gl.get_uniform_location(program, "proj"), 1, 0, projection);
}

void program_set_int(GLuint program, const char *name, int32_t value) {
  gl.uniform_1i(gl.get_uniform_location(program, name), value);
}

void program_set_float(GLuint program, const char *name, double value) {
  gl.uniform_1f(gl.get_uniform_location(program, name), static_cast<float>(value));
}

void program_set_vec3(GLuint program, const char *name, Vec3 value) {
  const Vec3f v = rounded(value);
  gl.uniform_3f(gl.get_uniform_location(program, name), v.x, v.y, v.z);
}

void program_set_light(GLuint program, Vec3 position, double brightness) {
  program_set_vec3(program, "lpos0", position);
  program_set_vec3(program, "lcol0", {brightness, brightness, brightness});
}
