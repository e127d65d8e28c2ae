#include "render/gl/view.h"

#include <algorithm>
#include <cassert>

#include "gfx/gl.h"
#include "gfx/gl_util.h"

namespace {

View current;

} // namespace

EyeMatrices eye_matrices_read() {
  EyeMatrices eye;
  glGetFloatv(GL_PROJECTION_MATRIX, eye.projection);
  glGetFloatv(GL_MODELVIEW_MATRIX, eye.modelview);
  return eye;
}

View view_make(const World *world, Vec3 followed, const EyeMatrices &eye,
               void (*set_slab)(float projection[16])) {
  View view = {world, world->camera, followed, {}, {}};
  std::copy_n(eye.projection, 16, view.projection);
  if (set_slab != nullptr) set_slab(view.projection);
  view.frustum = frustum_of(view.projection, eye.modelview);
  return view;
}

void view_use(const View &view) {
  current = view;
  gfx_load_projection(view.projection);
}

const View &view_current() {
  return current;
}

const View &view_of([[maybe_unused]] const World *world) {
  assert(current.world == world);
  return current;
}

void World_apply_view(const World *world) {
  double matrix[16] = {};
  for (int row = 0; row < 3; row++) {
    for (int column = 0; column < 3; column++) {
      matrix[column * 4 + row] = world->view.m[row][column];
    }
  }
  matrix[15] = 1.0;
  glMultMatrixd(matrix);
  glTranslatef(-static_cast<float>(world->camera.x), -static_cast<float>(world->camera.y),
               -static_cast<float>(world->camera.z));
}
