#pragma once

#include <cstdint>

#include "gfx/gl.h"
#include "support/vec3.h"

// GLSL programs: building them from strings, and their uniforms. A failure to compile or link
// doesn't stop the program: the log goes to a file, and the handle is used as it is.

// Sets the file to which the logs of failures are appended, null for none, and returns the one set
// before. "shader_error.log" at first. The name must outlive all programs.
const char *shader_set_error_log(const char *path);

// Compiles a shader of the given kind from strings that are joined in order.
GLuint shader_compile(GLenum kind, const char *const *strings, int32_t count);

// The info log of a shader or, with `is_program`, of a program, or "No information log". The
// caller frees it.
char *shader_info_log(GLuint object, int32_t is_program);

// Appends the object's info log to the log file if it failed to compile or link.
void shader_log_failure(GLuint object, int32_t is_program);

// Builds a program; null strings leave a stage to the fixed pipeline. Each log pointer, if not
// null, receives that object's info log for the caller to free. 0 if shaders are not available.
GLuint program_build(const char *const *vertex_strings, int32_t vertex_count,
                     const char *const *fragment_strings, int32_t fragment_count, char **vertex_log,
                     char **fragment_log, char **program_log);

// The same from a single fragment string.
GLuint fragment_program_build(const char *source, char **fragment_log, char **program_log);

// The same from a vertex and a fragment string, each after a shared one, which may be null.
GLuint program_join(const char *vertex_shared, const char *vertex, const char *fragment_shared,
                    const char *fragment);

// Makes a program current and sets its uniform "proj", which shaders write depths with.
void program_use(GLuint program, const float projection[16]);

// Sets a uniform of the current program by its name.
void program_set_int(GLuint program, const char *name, int32_t value);
void program_set_float(GLuint program, const char *name, double value);
void program_set_vec3(GLuint program, const char *name, Vec3 value);

// Sets the user's light (see shader_lighting): its position in the world, and the brightness of
// each channel at a distance of 1.
void program_set_light(GLuint program, Vec3 position, double brightness);
