#pragma once

// OpenGL 1.1 by the library's own symbols, and the constants of later versions. Entry points above
// 1.1 are fetched by name through gfx/platform.h.
#include <GL/gl.h>
#include <GL/glext.h>
