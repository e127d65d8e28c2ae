#include "maker/picture_camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "gfx/projection.h"
#include "gfx/stereo.h"
#include "maker/convex_hull.h"
#include "maker/drawn_extent.h"
#include "support/box.h"
#include "world/camera.h"

namespace {

constexpr double default_yaw = 0.4, default_pitch = -0.8; // radians, obliquely from above
constexpr double frame_share = 0.94;  // of the picture that the whole maze takes
constexpr int32_t circle_points = 64; // that replace a circle

// Adds a square around a ball, which can be a point.
void add_square(ConvexHull *hull, double x, double y, double radius) {
  if (radius == 0) return hull_add(hull, {x, y});
  for (const double dx : {-radius, radius})
    for (const double dy : {-radius, radius})
      hull_add(hull, {x + dx, y + dy});
}

// One axis of the picture, and the convex hull of what is drawn in the plane of this axis and the
// axis towards the eye.
struct Axis {
  Vec3 direction;
  double tangent; // of half the field of view
  ConvexHull hull;
};

// What shows along an axis, as tangents, from a place on it at that distance.
struct Span {
  double low, high;
};

Span span_from(const Axis &axis, double place, double distance) {
  Span span = {HUGE_VAL, -HUGE_VAL};
  for (const PlanePoint p : axis.hull.points) {
    const double tangent = (p.x - place) / (distance - p.y);
    span = {std::min(span.low, tangent), std::max(span.high, tangent)};
  }
  return span;
}

// The place and distance of the nearest eye that has all in its field of view. A point is in it if
// the eye is at least back + |aside - place| / tangent away; each sign gives a line that bounds the
// eye.
PlanePoint nearest_eye(const Axis &axis) {
  double left = -HUGE_VAL, right = -HUGE_VAL;
  for (const PlanePoint p : axis.hull.points) {
    left = std::max(left, p.y - p.x / axis.tangent);
    right = std::max(right, p.y + p.x / axis.tangent);
  }
  return {(right - left) / 2 * axis.tangent, (right + left) / 2};
}

// Where along an axis an eye at that distance, which is not too near, has equal margins.
double centred_place(const Axis &axis, double distance) {
  const PlanePoint nearest = nearest_eye(axis);
  const double slack = (distance - nearest.y) * axis.tangent;
  double low = nearest.x - slack, high = nearest.x + slack;
  for (int step = 0; step < 32; step++) {
    const double place = (low + high) / 2;
    const Span span = span_from(axis, place, distance);
    (span.low + span.high > 0 ? low : high) = place;
  }
  return (low + high) / 2;
}

// The view in which a picture is framed.
struct Framing {
  Axis across, upward;
  Vec3 back;
};

// In stereo leaves more room at the sides, where parallax shifts what is far or near.
Framing framing_for(const Options &options, const Mat3 &view) {
  float projection[16];
  projection_perspective(
      options.stereo == stereo_screens_across ? options.width / 2 : options.width,
      options.stereo == stereo_screens_stacked ? options.height / 2 : options.height, projection);
  const double share =
      options.stereo != stereo_off ? frame_share - picture_stereo_depth : frame_share;
  return {{Mat3_row(view, 0), share / projection[0], {}},
          {Mat3_row(view, 1), frame_share / projection[5], {}},
          Mat3_row(view, 2)};
}

void add_ball(Framing *framing, Vec3 centre, double radius) {
  for (Axis *axis : {&framing->across, &framing->upward})
    add_square(&axis->hull, dot(centre, axis->direction), dot(centre, framing->back), radius);
}

Vec3 framed_eye(Framing *framing) {
  hull_reduce(&framing->across.hull);
  hull_reduce(&framing->upward.hull);
  const double distance = std::max(nearest_eye(framing->across).y, nearest_eye(framing->upward).y);
  return {centred_place(framing->across, distance), centred_place(framing->upward, distance),
          distance};
}

// Adds the circles on which the drawn parts move in a turn around the pivot.
void add_turned(const NamedPlot &plot, const World &world, Vec3 pivot, Framing *framing) {
  ConvexHull profile; // distances from the axis, and heights
  drawn_extent(plot, world.root, [&](Vec3 centre, double radius) {
    const Vec3 p = centre - pivot;
    add_square(&profile, std::hypot(p.x, p.y), p.z, radius);
  });
  hull_reduce(&profile);
  for (const PlanePoint p : profile.points) {
    for (int32_t i = 0; i < circle_points; i++) {
      const double angle = 2 * std::numbers::pi * i / circle_points;
      add_ball(framing, {p.x * std::cos(angle), p.x * std::sin(angle), p.y}, 0);
    }
  }
}

// The middle of what is drawn.
Vec3 middle(const NamedPlot &plot, const World &world) {
  Box box = box_empty;
  drawn_extent(plot, world.root, [&](Vec3 centre, double) {
    if (is_finite(centre)) box_add(&box, centre);
  });
  return (box.low + box.high) / 2;
}

// Without anything to frame the distance is not finite.
void frame_all(const Options &options, const World &world, PictureCamera *plan) {
  const NamedPlot &plot = *plot_find(options.plot);
  Framing framing = framing_for(options, camera_orientation(plan->yaw, plan->pitch));
  if (options.turntable > 0) {
    plan->pivot = middle(plot, world);
    add_turned(plot, world, plan->pivot, &framing);
  } else {
    drawn_extent(plot, world.root,
                 [&](Vec3 centre, double radius) { add_ball(&framing, centre, radius); });
  }
  plan->eye = framed_eye(&framing);
  plan->keeps_distance = !is_finite(plan->eye);
}

} // namespace

PictureCamera camera_plan(const Options &options, World *world) {
  const bool oblique = options.whole || options.turntable > 0;
  PictureCamera plan = {};
  plan.keeps_view = !options.load.empty() && !options.turned && !oblique;
  plan.yaw = options.turned || !oblique ? options.yaw : default_yaw;
  plan.pitch = options.turned || !oblique ? options.pitch : default_pitch;
  plan.keeps_distance = true;
  if (options.zoom > 0) world->zoom = options.zoom;
  if (options.whole) frame_all(options, *world, &plan);
  return plan;
}

void camera_place(const PictureCamera &plan, double turn, World *world) {
  if (!plan.keeps_view) world->view = camera_orientation(plan.yaw + turn, plan.pitch);
  if (plan.keeps_distance) return World_place_camera(world);
  world->camera = plan.pivot + plan.eye.x * Mat3_row(world->view, 0) +
                  plan.eye.y * Mat3_row(world->view, 1) + plan.eye.z * Mat3_row(world->view, 2);
}
