#include "render/scene.h"

#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/stereo.h"
#include "gfx/window.h"
#include "render/anaglyph.h"
#include "render/gl/draw_cache.h"
#include "render/gl/view.h"
#include "render/plot.h"

namespace {

Vec3 frame_followed; // by the camera, in this frame: stereo_scene is given the World alone

void draw_slab(const World *world, const EyeMatrices &eye, void (*set_slab)(float projection[16])) {
  view_use(view_make(world, frame_followed, eye, set_slab));
  glClear(GL_DEPTH_BUFFER_BIT);
  plot_world(world);
}

// The eye separation, in world units, that gives the followed point zero parallax.
double eye_separation(const World *world, Vec3 followed, double stereo_depth) {
  const double distance = dot(world->camera - followed, Mat3_row(world->view, 2));
  return distance * 0.75 * stereo_depth * 2 * screen_width / screen_height;
}

} // namespace

void stereo_scene(const void *context) {
  const World *world = static_cast<const World *>(context);
  const EyeMatrices eye = eye_matrices_read();
  draw_slab(world, eye, projection_far_slab);
  draw_slab(world, eye, projection_near_slab);
  glClear(GL_DEPTH_BUFFER_BIT);
}

void scene_draw(const World *world, Vec3 followed, int32_t stereo_mode, int32_t stereo_swap,
                double stereo_depth) {
  frame_followed = followed;
  draw_cache_begin_frame();
  stereo_set_mixer(anaglyph_mixer);
  stereo_render(stereo_scene, world, stereo_mode, stereo_swap,
                eye_separation(world, followed, stereo_depth), -stereo_depth);
}
