#include "render/gl/shaderprocs.h"

#include <cstdio>

#include "gfx/gl_util.h"
#include "support/report.h"

namespace {

constexpr double version_needed = 2.0;

int32_t version_read;
int32_t available;
uint8_t bound;

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
                    "graphics driver, or Mesa's software driver",
                    version);
    report_fatal("shaderprocs", 41, text);
  }
  gl_procs_load();
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
