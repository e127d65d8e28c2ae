#include "app/scene.h"

#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/stereo.h"
#include "gfx/window.h"
#include "render/plot.h"
#include "world/move.h"

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

void stereo_scene(const void *context) {
  const World *world = static_cast<const World *>(context);
  draw_slab(world, projection_far_slab);
  draw_slab(world, projection_near_slab);
  glClear(GL_DEPTH_BUFFER_BIT);
}

double stereo_eye_offset(const World *world, double stereo_depth) {
  const Vec3 from_point = world->camera - World_follow_point(world);
  const double distance = dot(from_point, Mat3_row(world->view, 2));
  return distance * 0.75 * stereo_depth * 2 * screen_width / screen_height;
}

void scene_draw(const World *world, int32_t stereo_mode, int32_t stereo_swap, double stereo_depth) {
  const double eye_offset = stereo_eye_offset(world, stereo_depth);
  stereo_render(stereo_scene, world, stereo_mode, stereo_swap, eye_offset, -stereo_depth);
}
