#pragma once

#include <cstdint>

#include "gfx/gl_procs.h"

// Loads the table `gl` on the first call. A context below OpenGL 2.0 is a fatal report, after a
// sentence on the standard error.
void shader_procs_load();

// 1 if shaders can be used, 0 if the context is below OpenGL 2.0. The first call loads `gl`.
int32_t shaders_available();
