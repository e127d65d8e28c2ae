#pragma once

#include <cstdint>

#include "gfx/gl.h"

// Building of GLSL programs from strings. A program that fails is no stop: its log goes to a file,
// and its handle is used as it is.

// Where failures are appended, one log a failing object; null switches the file off.
extern const char *shader_error_log;

// Compiles a shader of the given kind from strings that are joined in order.
GLuint shader_compile(GLenum kind, const char *const *strings, int32_t count);

// The info log of a shader or, with `is_program`, of a program, or "No information log". The
// caller frees it.
char *shader_info_log(GLuint object, int32_t is_program);

// Appends the object's info log to the log file if it failed to compile or link.
void shader_log_failure(GLuint object, int32_t is_program);

// Builds a program; null strings leave a stage to the fixed pipeline. Each log pointer, if not
// null, gets that object's info log for the caller to free. 0 where there are no shaders.
GLuint program_build(const char *const *vertex_strings, int32_t vertex_count,
                     const char *const *fragment_strings, int32_t fragment_count, char **vertex_log,
                     char **fragment_log, char **program_log);

// The same from a single fragment string.
GLuint fragment_program_build(const char *source, char **fragment_log, char **program_log);
