#include "maker/picture_camera.h"

#include <algorithm>
#include <cmath>

#include "gfx/projection.h"
#include "maze/walk.h"
#include "world/camera.h"

namespace {

constexpr double default_yaw = 0.4, default_pitch = -0.8; // radians, from above and aside
constexpr double frame_share = 0.94; // of the picture that the whole maze takes

// Calls visit(position) for all nodes that can be seen.
template <typename Visit> void each_position(const World &world, const Visit &visit) {
  Maze_each_node(world.root, true, [&](Maze *maze, int32_t i) {
    const Vec3 p = node_position(maze_nodes(maze)[i]);
    if (maze_nodes(maze)[i].submaze == nullptr && is_finite(p)) visit(p);
  });
}

// One axis of the picture. A node that is `aside` along it and `back` towards the camera is in the
// picture if the camera, at `place` along the axis, is at least back + |aside - place| / tangent
// away. The two ends keep the maximum of that for each side.
struct Axis {
  Vec3 direction;
  double tangent; // of half the field of view
  double left = -HUGE_VAL, right = -HUGE_VAL;

  void add(Vec3 p, double back) {
    left = std::max(left, back - dot(p, direction) / tangent);
    right = std::max(right, back + dot(p, direction) / tangent);
  }
  double place() const { return (right - left) / 2 * tangent; }
  double distance() const { return (right + left) / 2; }
};

// Where along an axis a camera at that distance has equal margins on both sides.
double centred_place(const World &world, const Axis &axis, Vec3 back, double distance) {
  double low = axis.place() - distance * axis.tangent;
  double high = axis.place() + distance * axis.tangent;
  for (int step = 0; step < 16; step++) {
    const double place = (low + high) / 2;
    double left = 0, right = 0;
    each_position(world, [&](Vec3 p) {
      const double slope = (dot(p, axis.direction) - place) / (distance - dot(p, back));
      left = std::min(left, slope);
      right = std::max(right, slope);
    });
    (left + right > 0 ? low : high) = place;
  }
  return (low + high) / 2;
}

// The nearest place of the camera from which all plain nodes are in the picture, centred.
Vec3 whole_camera(const Options &options, const World &world) {
  float projection[16];
  projection_perspective(options.width, options.height, projection);
  const Vec3 back = Mat3_row(world.view, 2);
  Axis across = {Mat3_row(world.view, 0), frame_share / projection[0]};
  Axis upward = {Mat3_row(world.view, 1), frame_share / projection[5]};
  each_position(world, [&](Vec3 p) {
    across.add(p, dot(p, back));
    upward.add(p, dot(p, back));
  });
  const double distance = std::max(across.distance(), upward.distance()) + world.root->halfwidth;
  if (!std::isfinite(distance)) return world.camera;
  return across.direction * centred_place(world, across, back, distance) +
         upward.direction * centred_place(world, upward, back, distance) + back * distance;
}

} // namespace

void camera_place(const Options &options, World *world, double extra_yaw) {
  const bool from_above = !options.whole && options.turntable == 0;
  const double yaw = options.turned || from_above ? options.yaw : default_yaw;
  const double pitch = options.turned || from_above ? options.pitch : default_pitch;
  if (options.turned || !from_above || options.load.empty())
    world->view = camera_orientation(yaw + extra_yaw, pitch);
  if (options.zoom > 0) world->zoom = options.zoom;
  World_place_camera(world);
  if (options.whole) world->camera = whole_camera(options, *world);
}
