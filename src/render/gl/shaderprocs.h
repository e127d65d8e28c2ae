#pragma once

#include <cstdint>

#include "gfx/gl.h"

// The entry points of OpenGL 2.0 that shaders need. The platform's library doesn't export them.
struct ShaderProcs {
  PFNGLCREATESHADERPROC create_shader;
  PFNGLSHADERSOURCEPROC shader_source;
  PFNGLCOMPILESHADERPROC compile_shader;
  PFNGLCREATEPROGRAMPROC create_program;
  PFNGLATTACHSHADERPROC attach_shader;
  PFNGLLINKPROGRAMPROC link_program;
  PFNGLUSEPROGRAMPROC use_program;
  PFNGLGETUNIFORMLOCATIONPROC get_uniform_location;
  PFNGLUNIFORM1FPROC uniform_1f;
  PFNGLUNIFORM2FPROC uniform_2f;
  PFNGLUNIFORM3FPROC uniform_3f;
  PFNGLUNIFORM1IPROC uniform_1i;
  PFNGLUNIFORM1FVPROC uniform_1fv;
  PFNGLUNIFORM2FVPROC uniform_2fv;
  PFNGLUNIFORM1IVPROC uniform_1iv;
  PFNGLUNIFORMMATRIX4FVPROC uniform_matrix_4fv;
  PFNGLGETSHADERIVPROC get_shader_iv;
  PFNGLGETSHADERINFOLOGPROC get_shader_info_log;
  PFNGLGETPROGRAMIVPROC get_program_iv;
  PFNGLGETPROGRAMINFOLOGPROC get_program_info_log;
  PFNGLACTIVETEXTUREPROC active_texture;
};
extern ShaderProcs gl2;

// Loads gl2 on the first call. A context below OpenGL 2.0 is a fatal report, after a sentence on
// the standard error.
void shader_procs_load();

// 1 if shaders can be used, 0 if the context is below OpenGL 2.0. The first call loads gl2.
int32_t shaders_available();
