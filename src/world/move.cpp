#include "world/move.h"

#include <algorithm>
#include <cmath>

#include "maze/pos.h"
#include "maze/visit.h"

namespace {

// The zero vector stays what it is.
Vec3 direction_of(Vec3 v) {
  if (!(length_squared(v) > 0)) return {0, 0, 0};
  return v * (1.0 / length(v));
}

// Cosine of the angle between the push and the way to `target`; 0 for a target in the same place.
// Rounding may leave it a little above 1.
double push_score(Vec3 from, Vec3 push_direction, Pos target) {
  const Vec3 d = Pos_position(target) - from;
  const double distance = length(d);
  return distance > 0 ? dot(d, push_direction) / distance : 0.0;
}

// How much of the way to `target` the offset covers.
double part_of_way(Vec3 from, Vec3 offset, Pos target) {
  const Vec3 d = Pos_position(target) - from;
  return dot(offset, d) / length_squared(d);
}

// Entry that the offset points to best; of equals the last one in the list. -1 if it points to
// none.
int32_t best_entry(Vec3 from, Vec3 offset, const Pos *list, int32_t count) {
  const Vec3 direction = direction_of(offset);
  int32_t best = -1;
  double best_score = 0.0;
  for (int32_t i = count; i-- > 0;) {
    const double score = push_score(from, direction, list[i]);
    if (score > best_score) {
      best = i;
      best_score = score;
    }
  }
  return best;
}

// A score above 1, which only rounding makes, would have no angle.
double angle_of(double score) {
  const double c = std::min(score, 1.0);
  return std::atan2(std::sqrt(1.0 - c * c), c);
}

// How much of its motion a push keeps that has a rival: all if the rival is at a right angle, none
// if it is as near.
double rival_damping(double best_score, double second_score) {
  const double second_angle = angle_of(second_score);
  return second_angle > 0 ? 1.0 - angle_of(best_score) / second_angle : 0.0;
}

} // namespace

void World_move(World *world, double mx, double my) {
  world->offset = world->offset + mx * Mat3_row(world->view, 0) + my * Mat3_row(world->view, 1);
  const Pos from = world->cur;
  const Vec3 p = Pos_position(from);
  Pos list[pos_max_edges];
  const int32_t count = Pos_alledges(from.maze, from.node, list, nullptr);
  const int32_t best = best_entry(p, world->offset, list, count);
  if (best < 0) {
    world->offset = {0, 0, 0};
  } else if (part_of_way(p, world->offset, list[best]) > 1.0) {
    world->cur = list[best];
    world->offset = {0, 0, 0};
    Pos_mark_usertime(from.maze, from.node, world->cur.maze, world->cur.node, world->time);
  }
}

int32_t World_follow_fraction(Maze *maze, int32_t node, Vec3 offset, const Pos *list, int32_t count,
                              double *result) {
  const Vec3 p = Pos_position({maze, node});
  const Vec3 direction = direction_of(offset);
  int32_t best = -1;
  double best_score = 0.0;
  double second_score = 0.0;
  for (int32_t i = count; i-- > 0;) {
    const double score = push_score(p, direction, list[i]);
    if (score > best_score) {
      second_score = best_score;
      best_score = score;
      best = i;
    } else {
      second_score = std::max(second_score, score);
    }
  }
  *result = 0.0;
  if (best < 0) return -1;
  *result = part_of_way(p, offset, list[best]);
  if (second_score > 0) *result *= rival_damping(best_score, second_score);
  return best;
}

Vec3 World_follow_point(const World *world) {
  const Pos cur = world->cur;
  Pos list[pos_max_edges];
  const int32_t count = Pos_alledges(cur.maze, cur.node, list, nullptr);
  double f = 0.0;
  const int32_t best = World_follow_fraction(cur.maze, cur.node, world->offset, list, count, &f);
  if (best < 0) return Pos_position(cur);
  return (1.0 - f) * Pos_position(cur) + f * Pos_position(list[best]);
}
