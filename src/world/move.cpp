#include "world/move.h"

#include <algorithm>
#include <cmath>

#include "maze/pos.h"
#include "maze/visit.h"

namespace {

// Cosine of the angle between a push and the edge to `target`, which rounding can make slightly
// greater than 1; 0 for an edge without length.
double push_score(Vec3 from, Vec3 push_direction, Pos target) {
  const Vec3 d = Pos_position(target) - from;
  const double distance = length(d);
  return distance > 0 ? dot(d, push_direction) / distance : 0.0;
}

// The fraction of the edge to `target` that the offset covers.
double part_of_edge(Vec3 from, Vec3 offset, Pos target) {
  const Vec3 d = Pos_position(target) - from;
  return dot(offset, d) / length_squared(d);
}

// The entry that the offset points to best, the last one among equals, or -1 if it points to none;
// and the two best scores, 0 for none.
struct Ranking {
  int32_t best;
  double best_score, second_score;
};

Ranking rank_entries(Vec3 from, Vec3 offset, const Pos *list, int32_t count) {
  const Vec3 direction = unit(offset);
  Ranking ranking = {-1, 0.0, 0.0};
  for (int32_t i = count; i-- > 0;) {
    const double score = push_score(from, direction, list[i]);
    if (score > ranking.best_score)
      ranking = {i, score, ranking.best_score};
    else
      ranking.second_score = std::max(ranking.second_score, score);
  }
  return ranking;
}

double angle_of(double score) {
  const double c = std::min(score, 1.0); // a greater one has no angle
  return std::atan2(std::sqrt(1.0 - c * c), c);
}

// The fraction of its motion that a push keeps: all if the second best edge is at a right angle to
// it, none if that is as near as the best.
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
  const int32_t best = rank_entries(p, world->offset, list, count).best;
  if (best < 0) {
    world->offset = {0, 0, 0};
  } else if (part_of_edge(p, world->offset, list[best]) > 1.0) {
    world->cur = list[best];
    world->offset = {0, 0, 0};
    Pos_mark_usertime(from.maze, from.node, world->cur.maze, world->cur.node, world->time);
  }
}

int32_t World_follow_fraction(Maze *maze, int32_t node, Vec3 offset, const Pos *list, int32_t count,
                              double *result) {
  const Vec3 p = Pos_position({maze, node});
  const Ranking ranking = rank_entries(p, offset, list, count);
  *result = 0.0;
  if (ranking.best < 0) return -1;
  *result = part_of_edge(p, offset, list[ranking.best]);
  if (ranking.second_score > 0) *result *= rival_damping(ranking.best_score, ranking.second_score);
  return ranking.best;
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
