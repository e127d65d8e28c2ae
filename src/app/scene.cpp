#include "app/scene.h"

#include "gfx/gl.h"
#include "gfx/projection.h"
#include "render/plot.h"

namespace {

void draw_slab(const World *world, void (*set_slab)(float matrix[16])) {
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  set_slab(projection);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(projection);
  glMatrixMode(GL_MODELVIEW);
  glClear(GL_DEPTH_BUFFER_BIT);
  plot_world(world);
}

} // namespace

void stereo_scene(const World *world) {
  draw_slab(world, projection_far_slab);
  draw_slab(world, projection_near_slab);
  glClear(GL_DEPTH_BUFFER_BIT);
}
