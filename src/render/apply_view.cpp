#include "render/apply_view.h"

#include "gfx/gl.h"

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
