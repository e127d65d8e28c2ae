#include "render/ballstick.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

#include "picture.h"
#include "render/gl/view.h"
#include "scenarios.h"
#include "world/camera.h"
#include "world/move.h"
#include "world/small_world.h"

namespace {

// A ball or, with an axis, a stick.
struct Solid {
  Vec3 place, axis;
  double radius;
};

// The last two nodes of the outer maze are in one place; its second holds the inner maze.
constexpr Vec3 outer[] = {{-400, 150, 290}, {0, 0, 0}, {7, 2, -1}, {7, 9, 2}, {7, 9, 2}};
constexpr Vec3 inner[] = {{-2, 1, 1}, {2.5, -1, 0.2}, {1, 2.5, -0.5}};

Maze *path_along(const Vec3 *places, int32_t count) {
  Maze *path = scenario_path(count);
  for (int32_t i = 0; i < count; i++)
    scenario_move(path, i, places[i]);
  return path;
}

struct Scene {
  Maze *root = path_along(outer, 5), *below = path_along(inner, 3);
  SmallWorld world{root};
  std::vector<Solid> solids; // the marker last

  Scene() {
    scenario_hold(root, 1, below);
    world.cur = {below, 1};
    below->halfwidth = 0.4;
    world.offset = {-0.3, 0.7, 0.1};
    for (const Vec3 p : {outer[0], outer[2], outer[3]})
      solids.push_back({p, {}, 0.5});
    for (const Vec3 p : inner)
      solids.push_back({p, {}, 0.4});
    for (const auto &[p, q, radius] : {std::tuple{outer[2], outer[3], 0.5},
                                       {outer[0], inner[0], 0.5},
                                       {outer[2], inner[1], 0.5},
                                       {inner[0], inner[1], 0.4},
                                       {inner[1], inner[2], 0.4}})
      solids.push_back({p, q - p, radius});
    solids.push_back({World_follow_point(&world), {}, 0.6});
  }
  Picture draw(Vec3 eye, Vec3 target) {
    const Vec3 back = unit(eye - target);
    world.view = camera_orientation(std::atan2(-back.x, -back.y), -std::acos(back.z));
    world.camera = eye;
    picture_begin();
    World_apply_view(&world);
    view_use(view_make(&world, World_follow_point(&world), eye_matrices_read(), nullptr));
    ballstick_plot(root, &world, 0);
    return picture_take();
  }
};

// Where the ray enters the solid, in lengths of the ray; -1 if it misses.
double enter(const Solid &solid, Vec3 eye, Vec3 ray) {
  const double aa = length_squared(solid.axis);
  const auto across = [&](Vec3 v) {
    return aa == 0 ? v : v - solid.axis * (dot(v, solid.axis) / aa);
  };
  const Vec3 u = across(eye - solid.place), v = across(ray);
  const double half = dot(u, v) / dot(v, v);
  const double c = (dot(u, u) - solid.radius * solid.radius) / dot(v, v);
  const double k = -half - std::sqrt(half * half - c);
  const double along = dot(eye + ray * k - solid.place, solid.axis);
  return k > 0 && along >= 0 && along <= aa ? k : -1;
}

// The distance along the view to the nearest hit of the ray through a pixel, within the depth
// range.
double cast(const Scene &scene, double x, double y) {
  const Vec3 ray = Mat3_transpose(scene.world.view) *
                   Vec3{2 * x / picture_width - 1, 0.75 - 1.5 * y / picture_height, -1};
  double nearest = 1000.1;
  for (const Solid &solid : scene.solids) {
    const double k = enter(solid, scene.world.camera, ray);
    if (k >= 0) nearest = std::min(nearest, k);
  }
  return std::max(0.1, nearest);
}

// Whether a pixel's depth is between those of rays around its centre: where solids end or
// intersect, rounding decides.
bool pixel_fits(const Scene &scene, const Picture &picture, int x, int y) {
  const double depth = 0.20002 / (2.0002 - 2.0 * static_cast<double>(picture_depth(picture, x, y)));
  double low = 1e9, high = -1e9;
  for (const double dx : {0.5, 0.3, 0.7})
    for (const double dy : {0.5, 0.3, 0.7}) {
      const double seen = cast(scene, x + dx, y + dy);
      low = std::min(low, seen - 0.001 * depth);
      high = std::max(high, seen + 0.001 * depth);
      if (depth >= low && depth <= high) return true;
    }
  return false;
}

// The approved pictures cover colours and lights.
TEST(BallStick, EachPixelHasTheDepthOfItsRaysNearestHit) {
  Scene scene;
  const Vec3 way = unit(outer[3] - outer[2]), marker = scene.solids.back().place;
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
      {"inside the marker", marker + Vec3{0, 0.5, 0.1}, outer[0]},
      {"inside a stick, along it", outer[2] + way * 3 + Vec3{0.1, 0, 0}, outer[2]},
      {"on the axis of a stick, along it", outer[2] - way * 2, outer[3]},
      {"on the axis of a stick, sideways", outer[3] + way * 3, inner[1]},
      {"just outside a stick, along it", outer[2] + way * 2 - Vec3{0.55, 0, 0}, outer[3]},
      {"between two sticks", outer[2] + way * 3 - Vec3{0.9, 0, 0}, inner[0]},
  };
  for (const auto &[what, eye, target] : views) {
    const Picture picture = scene.draw(eye, target);
    int wrong = 0, covered = 0;
    for (int i = 0; i < picture_width * picture_height; i += 7) { // a different column in each row
      const int x = i % picture_width, y = i / picture_width;
      covered += picture_depth(picture, x, y) < 1;
      wrong += !pixel_fits(scene, picture, x, y);
    }
    // Far away the long stick is thinner than the steps in which its quad is rasterised.
    EXPECT_LE(wrong, 2) << what << ", of " << covered;
    EXPECT_GT(covered, 20) << what;
  }
}

} // namespace
