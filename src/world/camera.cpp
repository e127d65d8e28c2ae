#include "world/camera.h"

#include <algorithm>
#include <numbers>

namespace {

constexpr double chase_rate = 10.0; // per second

} // namespace

Mat3 camera_orientation(double yaw, double pitch) {
  return Mat3_rotation_x(pitch) * Mat3_rotation_z(yaw);
}

void World_turn_view(World *world, double yaw, double *pitch) {
  *pitch = std::clamp(*pitch, -std::numbers::pi, 0.0);
  const Vec3 old_direction = Mat3_row(world->view, 2);
  world->view = camera_orientation(yaw, *pitch);
  world->camera = world->camera + world->zoom * (Mat3_row(world->view, 2) - old_direction);
}

void World_chase(World *world, Vec3 followed, double dt) {
  const Vec3 ideal = followed + world->zoom * Mat3_row(world->view, 2);
  const double s = std::min(1.0, chase_rate * dt);
  if (s < 1.0 && is_finite(world->camera))
    world->camera = world->camera + s * (ideal - world->camera);
  else
    world->camera = ideal;
}
