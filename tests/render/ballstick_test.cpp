#include "render/ballstick.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "gfx/gl.h"
#include "lamps.h"
#include "picture.h"
#include "render/apply_view.h"
#include "render/plot.h"
#include "scenarios.h"
#include "support/colour.h"
#include "world/camera.h"
#include "world/move.h"

namespace {

// A ball or, with an axis, a stick.
struct Body {
  Vec3 place, axis;
  double radius;
  uint32_t colour;
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

// A level that ends with two nodes at one place, and a room in it that is worn by one door.
struct Scene {
  Maze *room = path_along(inner, 3); // first, so that it draws its ways out
  Maze *root = path_along(outer, 5);
  World world;
  std::vector<Body> bodies; // the marker last

  Scene() {
    scenario_hold(root, 1, room);
    room->halfwidth = 0.4;
    room->bordermask = 2;
    maze_nodes(root)[3].self.colour = maze_nodes(root)[4].self.colour = colour_white;
    maze_nodes(root)[1].edge[0].colour = 0xE04060;
    world = world_from_above(root, {room, 1});
    world.offset = {-0.3, 0.7, 0.1};
    bodies = {{outer[0], {}, 0.5, 0x808080},
              {outer[2], {}, 0.5, 0x808080},
              {outer[3], {}, 0.5, 0xFEFEFE},
              {inner[0], outer[0] - inner[0], 0.4, 0xE04060}, // a way out isn't worn
              {inner[1], outer[2] - inner[1], 0.4, 0x808080},
              {outer[2], outer[3] - outer[2], 0.5, 0x808080},
              {inner[0], inner[1] - inner[0], 0.4, 0xC0A040},
              {inner[1], inner[2] - inner[1], 0.4, 0xC0A040}};
    for (const Vec3 p : inner)
      bodies.push_back({p, {}, 0.4, 0xC0A040});
    bodies.push_back({World_follow_point(&world), {}, 0.6, 0xFFFFFF});
    plot_type = 2;
  }
  ~Scene() {
    plot_type = plot_light = 0;
    Maze_destroy(root, 1);
  }
  Picture draw(Vec3 eye, Vec3 target) {
    const Vec3 back = (eye - target) * (1 / length(eye - target));
    world.view = camera_orientation(std::atan2(-back.x, -back.y), -std::acos(back.z));
    world.camera = eye;
    picture_begin();
    World_apply_view(&world);
    plot_world(&world);
    GLint program = -1;
    glGetIntegerv(GL_CURRENT_PROGRAM, &program);
    EXPECT_EQ(program, 0);
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

// Red, green and blue out of 255, and the distance along the view, between the planes.
using Seen = std::array<double, 4>;

Seen cast(const Scene &scene, double x, double y) {
  const Vec3 eye = scene.world.camera;
  const Vec3 ray = Mat3_transpose(scene.world.view) *
                   Vec3{2 * x / picture_width - 1, 0.75 - 1.5 * y / picture_height, -1};
  const Body &marker = scene.bodies.back();
  const Body *hit = nullptr;
  double nearest = 1000.1;
  for (const Body &body : scene.bodies) {
    const double k = enter(body, eye, ray);
    if (k < 0 || k >= nearest) continue;
    nearest = k;
    hit = &body;
  }
  if (hit == nullptr) return {0, 0, 0, nearest};
  const Vec3 place = eye + ray * nearest;
  const Vec3 normal = across(*hit, place - hit->place) * (1 / hit->radius);
  const Vec3 light = hit == &marker && plot_light != 0
                         ? Vec3{1, 1, 1}
                         : lamp_light(normal, place, marker.place, Vec3{5, 5, 5} * plot_light);
  return {std::min(255.0, light.x * colour_red(hit->colour)),
          std::min(255.0, light.y * colour_green(hit->colour)),
          std::min(255.0, light.z * colour_blue(hit->colour)), std::max(0.1, nearest)};
}

// Whether a pixel lies between what rays just around its middle find: at the rims of bodies and
// where they cut each other, the card's rounding may choose.
bool pixel_fits(const Scene &scene, const Picture &picture, int x, int y) {
  const uint32_t colour = picture_colour(picture, x, y);
  const double depth = -picture_eye_z(picture_depth(picture, x, y));
  const Seen got = {1.0 * colour_red(colour), 1.0 * colour_green(colour), 1.0 * colour_blue(colour),
                    depth};
  const Seen slack = {1.5, 1.5, 1.5, 0.001 * depth};
  Seen low = {1e9, 1e9, 1e9, 1e9}, high = {-1e9, -1e9, -1e9, -1e9};
  for (const auto &[dx, dy] :
       {std::pair{0.0, 0.0}, {0.2, 0.2}, {-0.2, 0.2}, {0.2, -0.2}, {-0.2, -0.2}}) {
    const Seen seen = cast(scene, x + 0.5 + dx, y + 0.5 + dy);
    bool fits = true;
    for (size_t c = 0; c < 4; c++) {
      low[c] = std::min(low[c], seen[c] - slack[c]);
      high[c] = std::max(high[c], seen[c] + slack[c]);
      fits &= got[c] >= low[c] && got[c] <= high[c];
    }
    if (fits) return true;
  }
  return false;
}

TEST(BallStick, EachPixelShowsWhatItsRayMeets) {
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
    for (plot_light = 0; plot_light < 2; plot_light++) {
      const Picture picture = scene.draw(eye, target);
      int wrong = 0, covered = 0, last = 0;
      for (int i = 0; i < picture_width * picture_height; i++) {
        const int x = i % picture_width, y = i / picture_width;
        covered += picture_depth(picture, x, y) < 1;
        if (pixel_fits(scene, picture, x, y)) continue;
        wrong++;
        last = i;
      }
      // The long stick, far away, is thinner than the card's steps across its quad are exact.
      EXPECT_LE(wrong, 6) << what << ", light " << plot_light << ": of " << covered << ", last at "
                          << last % picture_width << ", " << last / picture_width;
      EXPECT_GT(covered, 100) << what;
    }
  }
}

} // namespace
