#include "maker/picture_camera.h"

#include <algorithm>
#include <cmath>

#include "gfx/projection.h"
#include "maze/walk.h"
#include "world/camera.h"

namespace {

constexpr double usual_yaw = 0.4, usual_pitch = -0.8; // radians, from above and aside
constexpr double frame_share = 0.94;                  // of the picture that the whole maze takes

// One axis of the picture. A node that is `aside` along it and `back` towards the camera is in the
// picture if the camera, at `place` along the axis, is at least back + |aside - place| / tangent
// away. The two ends keep the maximum of that for each side.
struct Axis {
  double tangent; // of half the field of view
  double left = -HUGE_VAL, right = -HUGE_VAL;

  void add(double aside, double back) {
    left = std::max(left, back - aside / tangent);
    right = std::max(right, back + aside / tangent);
  }
  double place() const { return (right - left) / 2 * tangent; }
  double distance() const { return (right + left) / 2; }
};

// The nearest place of the camera from which all plain nodes are in the picture.
Vec3 whole_camera(const Options &options, const World &world) {
  float projection[16];
  projection_perspective(options.width, options.height, projection);
  const Vec3 right = Mat3_row(world.view, 0), up = Mat3_row(world.view, 1),
             back = Mat3_row(world.view, 2);
  Axis across = {frame_share / projection[0]}, upward = {frame_share / projection[5]};
  Maze_each_node(world.root, true, [&](Maze *maze, int32_t i) {
    const Vec3 p = node_position(maze_nodes(maze)[i]);
    if (maze_nodes(maze)[i].submaze != nullptr || !is_finite(p)) return;
    across.add(dot(p, right), dot(p, back));
    upward.add(dot(p, up), dot(p, back));
  });
  const double distance = std::max(across.distance(), upward.distance());
  return right * across.place() + up * upward.place() + back * (distance + world.root->halfwidth);
}

} // namespace

void camera_place(const Options &options, World *world, double turned) {
  const bool from_above = !options.whole && options.turntable == 0;
  const double yaw = options.turned || from_above ? options.yaw : usual_yaw;
  const double pitch = options.turned || from_above ? options.pitch : usual_pitch;
  if (options.turned || !from_above || options.load.empty())
    world->view = camera_orientation(yaw + turned, pitch);
  if (options.zoom > 0) world->zoom = options.zoom;
  World_place_camera(world);
  if (options.whole) world->camera = whole_camera(options, *world);
}
