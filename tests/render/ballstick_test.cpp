#include "render/ballstick.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "picture.h"
#include "render/apply_view.h"
#include "render/plot.h"
#include "scenarios.h"
#include "world/camera.h"
#include "world/move.h"

namespace {

// A ball or, with an axis, a stick.
struct Body {
  Vec3 place, axis;
  double radius;
};

constexpr Vec3 outer[] = {{-400, 150, 290}, {0, 0, 0}, {7, 2, -1}, {7, 9, 2}, {7, 9, 2}};
constexpr Vec3 inner[] = {{-2, 1, 1}, {2.5, -1, 0.2}, {1, 2.5, -0.5}};

Maze *path_along(const Vec3 *places, int32_t count) {
  Maze *path = scenario_path(count);
  for (int32_t i = 0; i < count; i++) {
    MazeNode &node = maze_nodes(path)[i];
    node.x = places[i].x;
    node.y = places[i].y;
    node.z = places[i].z;
  }
  return path;
}

// A level that ends with two nodes at one place, and a room in it.
struct Scene {
  Maze *room = path_along(inner, 3); // first, so that it draws its ways out
  Maze *root = path_along(outer, 5);
  World world;
  std::vector<Body> bodies; // the marker last

  Scene() {
    scenario_hold(root, 1, room);
    room->halfwidth = 0.4;
    world = world_from_above(root, {room, 1});
    world.offset = {-0.3, 0.7, 0.1};
    for (const Vec3 p : {outer[0], outer[2], outer[3]})
      bodies.push_back({p, {}, 0.5});
    bodies.push_back({outer[2], outer[3] - outer[2], 0.5});
    for (const auto &[p, q] : {std::pair{inner[0], outer[0]},
                               {inner[1], outer[2]},
                               {inner[0], inner[1]},
                               {inner[1], inner[2]}})
      bodies.push_back({p, q - p, 0.4});
    for (const Vec3 p : inner)
      bodies.push_back({p, {}, 0.4});
    bodies.push_back({World_follow_point(&world), {}, 0.6});
  }
  ~Scene() { Maze_destroy(root, 1); }
  Picture draw(Vec3 eye, Vec3 target) {
    const Vec3 back = (eye - target) * (1 / length(eye - target));
    world.view = camera_orientation(std::atan2(-back.x, -back.y), -std::acos(back.z));
    world.camera = eye;
    picture_begin();
    World_apply_view(&world);
    ballstick_plot(root, &world, 0);
    return picture_take();
  }
};

// v without its part along the body's axis.
Vec3 across(const Body &body, Vec3 v) {
  const double aa = length_squared(body.axis);
  return aa == 0 ? v : v - body.axis * (dot(v, body.axis) / aa);
}

// How many times its length the ray goes to enter the body's surface; -1 if it doesn't.
double enter(const Body &body, Vec3 eye, Vec3 ray) {
  const Vec3 u = across(body, eye - body.place);
  const Vec3 v = across(body, ray);
  const double half = dot(u, v) / dot(v, v);
  const double c = (dot(u, u) - body.radius * body.radius) / dot(v, v);
  const double k = -half - std::sqrt(half * half - c);
  const double along = dot(eye + ray * k - body.place, body.axis);
  return k > 0 && along >= 0 && along <= length_squared(body.axis) ? k : -1;
}

// The distance along the view, between the planes, of what the ray through a pixel meets.
double cast(const Scene &scene, double x, double y) {
  const Vec3 ray = Mat3_transpose(scene.world.view) *
                   Vec3{2 * x / picture_width - 1, 0.75 - 1.5 * y / picture_height, -1};
  double nearest = 1000.1;
  for (const Body &body : scene.bodies) {
    const double k = enter(body, scene.world.camera, ray);
    if (k >= 0) nearest = std::min(nearest, k);
  }
  return std::max(0.1, nearest);
}

// Whether a pixel lies between what rays just around its middle find: at the rims of bodies and
// where they cut each other, the card's rounding may choose.
bool pixel_fits(const Scene &scene, const Picture &picture, int x, int y) {
  const double depth = -picture_eye_z(picture_depth(picture, x, y));
  double low = 1e9, high = -1e9;
  for (const auto &[dx, dy] :
       {std::pair{0.0, 0.0}, {0.2, 0.2}, {-0.2, 0.2}, {0.2, -0.2}, {-0.2, -0.2}}) {
    const double seen = cast(scene, x + 0.5 + dx, y + 0.5 + dy);
    low = std::min(low, seen - 0.001 * depth);
    high = std::max(high, seen + 0.001 * depth);
    if (depth >= low && depth <= high) return true;
  }
  return false;
}

// Colours and lights are the approved pictures' business.
TEST(BallStick, EachPixelHasTheDepthOfWhatItsRayMeets) {
  Scene scene;
  const Vec3 way = (outer[3] - outer[2]) * (1 / length(outer[3] - outer[2]));
  const struct {
    const char *what;
    Vec3 eye, target;
  } views[] = {
      {"from above", {0.01, 0, 16}, {0, 0, 0}},
      {"far", {60, -70, 90}, {0, 0, 0}},
      {"near and tilted", {-3.5, -1.2, 2.1}, inner[0]},
      {"at the far end of a long stick", outer[0] + Vec3{3, -2, 1}, outer[0]},
      {"inside a ball", outer[2] + Vec3{0.1, -0.3, 0.2}, inner[1]},
      {"a ball partly behind the eye", outer[3] + Vec3{-0.51, 0.4, 0}, outer[3] - Vec3{0.51, 1, 0}},
      {"inside the marker", scene.bodies.back().place + Vec3{0, 0.5, 0.1}, outer[0]},
      {"inside a stick, along it", outer[2] + way * 3 + Vec3{0.1, 0, 0}, outer[2]},
      {"on the axis of a stick, along it", outer[2] - way * 2, outer[3]},
      {"on the axis of a stick, aside", outer[3] + way * 3, inner[1]},
      {"just outside a stick, along it", outer[2] + way * 2 - Vec3{0.55, 0, 0}, outer[3]},
      {"between two sticks", outer[2] + way * 3 - Vec3{0.9, 0, 0}, inner[0]},
  };
  for (const auto &[what, eye, target] : views) {
    const Picture picture = scene.draw(eye, target);
    int wrong = 0, covered = 0;
    for (int i = 0; i < picture_width * picture_height; i += 7) { // on each row at other places
      const int x = i % picture_width, y = i / picture_width;
      covered += picture_depth(picture, x, y) < 1;
      wrong += !pixel_fits(scene, picture, x, y);
    }
    // The long stick, far away, is thinner than the card's steps across its quad are exact.
    EXPECT_LE(wrong, 2) << what << ", of " << covered;
    EXPECT_GT(covered, 20) << what;
  }
}

} // namespace
