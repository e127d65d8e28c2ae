#include "maker/random_walk.h"

#include "maze/pos.h"
#include "maze/visit.h"
#include "support/random.h"

namespace {

constexpr double step_time = 0.4; // seconds

// Any way but the one back, unless there is no other. Pos_null at a node without edges. Takes one
// number per step, unlike a Roamer, which draws again instead of leaving the way back out.
Pos random_way(Pos here, Pos before) {
  Pos ways[pos_max_edges];
  int32_t count = Pos_alledges(here.maze, here.node, ways, nullptr);
  if (count == 0) return Pos_null;
  for (int32_t i = 0; i < count && count > 1; i++)
    if (Pos_equal(ways[i], before)) ways[i] = ways[--count];
  return ways[rand_int(count)];
}

} // namespace

void World_walk(World *world, int32_t steps) {
  Pos before = Pos_null;
  for (int32_t i = 0; i < steps; i++) {
    const Pos here = world->cur, next = random_way(here, before);
    if (next.maze == nullptr) return;
    world->time += step_time;
    Pos_mark_usertime(here.maze, here.node, next.maze, next.node, world->time);
    before = here;
    world->cur = next;
  }
  World_place_camera(world);
}
