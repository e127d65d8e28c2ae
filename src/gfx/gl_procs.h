#pragma once

#include "gfx/gl.h"

// Entry points above OpenGL 1.1, which the system's GL library need not export. One that the driver
// lacks may be null.
struct GlProcs {
  // OpenGL 2.0: shaders.
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

  // GL_ARB_framebuffer_object. The first is null unless all of them are there.
  PFNGLGENFRAMEBUFFERSPROC gen_framebuffers;
  PFNGLBINDFRAMEBUFFERPROC bind_framebuffer;
  PFNGLDELETEFRAMEBUFFERSPROC delete_framebuffers;
  PFNGLGENRENDERBUFFERSPROC gen_renderbuffers;
  PFNGLBINDRENDERBUFFERPROC bind_renderbuffer;
  PFNGLDELETERENDERBUFFERSPROC delete_renderbuffers;
  PFNGLRENDERBUFFERSTORAGEPROC renderbuffer_storage;
  PFNGLFRAMEBUFFERRENDERBUFFERPROC framebuffer_renderbuffer;
  PFNGLCHECKFRAMEBUFFERSTATUSPROC check_framebuffer_status;

  PFNGLGENERATEMIPMAPPROC generate_mipmap;
};
extern GlProcs gl;

// Fills the table on the first call, which needs a current context.
void gl_procs_load();
